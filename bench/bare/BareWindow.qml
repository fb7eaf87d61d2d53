import QtQuick
import QtQuick.Controls.Basic

ApplicationWindow {
    width: 390
    height: 844
    visible: true

    Button {
        anchors.centerIn: parent
        text: "Start"
    }
}
