import QtQuick
import Tamsel.Ui

// Lies over a screen that was opened from another, and takes nothing from it but two ways back: a finger's swipe that
// begins at the leading edge, and the mouse's back button. While a finger pulls, an arrow follows it; it is filled as
// soon as letting go leads back.
Item {
    id: swipe

    readonly property bool mirrored: LayoutMirroring.enabled
    property real pulled: 0
    readonly property bool armed: pulled >= Theme.backSwipeDistance

    signal back()

    TapHandler {
        acceptedButtons: Qt.BackButton
        enabled: swipe.enabled
        onTapped: swipe.back()
    }

    Item {
        id: edge

        // Narrow enough to lie beside whatever else can be swiped.
        width: Theme.screenMargin
        height: parent.height
        anchors.left: parent.left

        DragHandler {
            id: drag

            target: null
            enabled: swipe.enabled
            yAxis.enabled: false
            acceptedDevices: PointerDevice.TouchScreen | PointerDevice.Stylus
            onActiveTranslationChanged: {
                if (active)
                    swipe.pulled = Math.max(0, activeTranslation.x * (swipe.mirrored ? -1 : 1));
            }
            onCanceled: swipe.pulled = 0
            onActiveChanged: {
                const go = !active && swipe.armed;
                if (!active)
                    swipe.pulled = 0;
                if (go)
                    swipe.back();
            }
        }
    }

    Rectangle {
        readonly property real way: Math.min(swipe.pulled, Theme.backSwipeDistance)

        objectName: "back_swipe_arrow"
        anchors.verticalCenter: parent.verticalCenter
        x: swipe.mirrored ? parent.width - way : way - width
        width: Theme.touchTarget
        height: width
        radius: width / 2
        visible: swipe.pulled > 0
        color: swipe.armed ? Theme.accent : Theme.track

        Icon {
            anchors.centerIn: parent
            name: swipe.mirrored ? "chevron-right" : "chevron-left"
            color: swipe.armed ? Theme.accentInk : Theme.text
        }
    }
}
