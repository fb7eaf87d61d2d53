import QtQuick
import Tamsel.Ui

// Says what a long press on its tile does. To a screen reader, which has no long press, it is a button that does it.
TextLabel {
    id: hint

    property string spokenName: text

    signal activated()

    kind: TextLabel.Caption
    Accessible.role: Accessible.Button
    Accessible.name: spokenName
    Accessible.onPressAction: hint.activated()
}
