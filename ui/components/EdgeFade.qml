import QtQuick
import Tamsel.Ui

// Lets what scrolls beneath fade into the ground instead of being cut off.
Rectangle {
    id: fade

    property bool atTop: false

    implicitHeight: Theme.mediumSpacing
    gradient: Gradient {
        GradientStop {
            position: fade.atTop ? 0 : 1
            color: Theme.ground
        }

        GradientStop {
            position: fade.atTop ? 1 : 0
            color: Theme.clearGround
        }
    }
}
