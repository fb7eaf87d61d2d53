import QtQuick
import Tamsel.Ui

// A running time in large figures. `spokenText` is what a screen reader says.
DigitText {
    id: clock

    property string spokenText: text

    pixelSize: Theme.clockSize
    weight: Font.DemiBold
    Accessible.ignored: false
    Accessible.role: Accessible.StaticText
    Accessible.name: spokenText
}
