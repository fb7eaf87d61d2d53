import QtQuick
import Tamsel.Ui

// A raised surface with room around what lies on it, as tall as that needs.
Item {
    id: card

    property int padding: Theme.mediumSpacing
    property alias radius: surface.radius
    property alias relief: surface.relief
    default property alias content: inner.data

    implicitHeight: inner.childrenRect.height + 2 * padding

    Surface {
        id: surface

        anchors.fill: parent
    }

    Item {
        id: inner

        anchors.fill: parent
        anchors.margins: card.padding
    }
}
