import QtQuick
import Tamsel.Ui

// A rounded rectangle of soft-shadow look: raised out of the ground, pressed into it, or flat (nothing is drawn). What
// lies on it is placed by whoever uses it. The shadows reach beyond its bounds.
SurfaceBase {
    id: surface

    enum Relief { Flat, Raised, Pressed }

    property int relief: Surface.Raised
    property int depth: Theme.Deep

    raised: relief === Surface.Raised
    pressed: relief === Surface.Pressed
    offset: Theme.shadowOffsets[depth]
    blur: Theme.shadowBlurs[depth]
    radius: Theme.cardRadius
    color: Theme.ground
    shadowColors: Theme.shadowColors
    pixelRatio: Theme.devicePixelRatio
    picture: BorderImage {
        parent: surface
        z: -1
        horizontalTileMode: BorderImage.Stretch
        verticalTileMode: BorderImage.Stretch
    }
}
