import QtQuick
import Tamsel.Ui

// A rounded rectangle of soft-shadow look: raised out of the ground, pressed into it, or flat (nothing is drawn). What
// lies on it is placed by whoever uses it. The shadows reach beyond its bounds.
Item {
    id: surface

    enum Relief { Flat, Raised, Pressed }

    property int relief: Surface.Raised
    property int depth: Theme.Deep
    property real radius: Theme.cardRadius
    property color color: Theme.ground
    property string shadowColors: Theme.shadowColors

    BorderImage {
        id: picture

        // Not before the surface has its size and is to be seen: every picture asked for on the way would be made for
        // nothing.
        property bool complete: false
        readonly property bool shown: complete && surface.visible && surface.relief !== Surface.Flat
        readonly property bool raised: surface.relief === Surface.Raised
        readonly property int offset: Theme.shadowOffsets[surface.depth]
        readonly property int blur: Theme.shadowBlurs[surface.depth]
        readonly property int margin: raised ? offset + blur : 0
        readonly property int wholeWidth: Math.max(1, Math.round(surface.width))
        readonly property int wholeHeight: Math.max(1, Math.round(surface.height))
        readonly property int corner: Math.min(Math.round(surface.radius), Math.floor(wholeWidth / 2),
                                               Math.floor(wholeHeight / 2))
        // Beyond this the middle of a side looks the same everywhere, so a longer side is stretched, not painted anew.
        readonly property int longestSide: 2 * (corner + offset + blur) + 1
        readonly property int bodyWidth: Math.min(wholeWidth, longestSide)
        readonly property int bodyHeight: Math.min(wholeHeight, longestSide)
        readonly property real pixels: Theme.devicePixelRatio

        // The picture is laid out in device pixels and scaled back, so that its borders are exact on every screen.
        x: -margin
        y: -margin
        width: Math.round((surface.width + 2 * margin) * pixels)
        height: Math.round((surface.height + 2 * margin) * pixels)
        scale: 1 / pixels
        transformOrigin: Item.TopLeft
        border.left: Math.floor(((bodyWidth + 2 * margin) * pixels - 1) / 2)
        border.right: border.left
        border.top: Math.floor(((bodyHeight + 2 * margin) * pixels - 1) / 2)
        border.bottom: border.top
        horizontalTileMode: BorderImage.Stretch
        verticalTileMode: BorderImage.Stretch
        visible: shown
        source: shown ? "image://tamsel-shadow/" + (raised ? "raised/" : "pressed/") + bodyWidth + "x" + bodyHeight
                        + "/" + corner + "/" + offset + "/" + blur + "/" + Theme.hex(surface.color) + "/"
                        + surface.shadowColors
                      : ""
        Component.onCompleted: complete = true
    }
}
