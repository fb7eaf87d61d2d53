import QtQuick
import Tamsel.Ui

// A picture from Tamsel's set, in one colour. It is decoration: whoever shows it says what it means.
Image {
    id: icon

    property string name
    property color color: Theme.text
    property int size: Theme.icon

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: name === "" ? "" : "image://tamsel-icon/" + name + "/" + Theme.hex(color)
    Accessible.ignored: true
}
