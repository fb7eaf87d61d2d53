import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// One item being practised: the metronome, the timer, the stopwatch, and what was done today.
FocusScope {
    id: screen

    required property PracticeViewModel practice

    // Tools stand beside the metronome where the window is wide, below it where it is not.
    readonly property bool beside: width >= Theme.twoColumnWidth
    readonly property int margin: beside ? Theme.largeSpacing
                                         : Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))
    readonly property int columnWidth: beside ? Math.floor((Math.min(width, 2 * Theme.contentWidth) - 3 * margin) / 2)
                                              : width - 2 * margin

    signal left()

    Keys.onPressed: event => {
        const metronome = screen.practice.metronomeViewModel;
        event.accepted = true;
        if (event.key === Qt.Key_Space)
            event.isAutoRepeat || metronome.playPauseTapped();
        else if (event.key === Qt.Key_Up)
            metronome.plusTapped();
        else if (event.key === Qt.Key_Down)
            metronome.minusTapped();
        else if (event.key === Qt.Key_PageUp)
            metronome.plusLongPressed();
        else if (event.key === Qt.Key_PageDown)
            metronome.minusLongPressed();
        else if (event.key === Qt.Key_Escape || event.key === Qt.Key_Back || event.matches(StandardKey.Back))
            screen.left();
        else
            event.accepted = false;
    }

    TapHandler {
        onTapped: screen.forceActiveFocus(Qt.OtherFocusReason)
    }

    NavigationHeader {
        id: header

        x: Theme.spacing
        width: parent.width - 2 * Theme.spacing
        text: screen.practice.exerciseName
        onBack: screen.left()
    }

    Flickable {
        id: scroller

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: page.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Item {
            id: page

            readonly property int stackedHeight: hero.implicitHeight + tools.height + Theme.largeSpacing
            readonly property int need: (screen.beside ? Math.max(hero.implicitHeight, tools.height) : stackedHeight)
                                        + Theme.spacing + Theme.hugeSpacing

            width: parent.width
            height: Math.max(need, screen.beside ? scroller.height : 0)

            MetronomeCard {
                id: hero

                x: screen.beside ? Math.round((page.width - 2 * screen.columnWidth - screen.margin) / 2) : screen.margin
                y: Theme.spacing
                width: screen.columnWidth
                height: screen.beside ? Math.min(page.height - y - Theme.hugeSpacing, 620) : implicitHeight
                metronome: screen.practice.metronomeViewModel
                caption: screen.practice.savedTempoText
            }

            PracticeTools {
                id: tools

                x: screen.beside ? hero.x + hero.width + screen.margin : screen.margin
                y: screen.beside ? hero.y : hero.y + hero.height + Theme.largeSpacing
                width: screen.columnWidth
                practice: screen.practice
            }
        }
    }

    EdgeFade {
        anchors.top: scroller.top
        width: parent.width
        visible: !scroller.atYBeginning
        atTop: true
    }
}
