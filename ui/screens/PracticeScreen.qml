import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// One item being practised: the metronome, the timer, the stopwatch, the tools, and what was done today.
FocusScope {
    id: screen

    required property PracticeViewModel practice

    // Tools stand beside the metronome where the window is wide, below it where it is not.
    readonly property bool beside: width >= Theme.twoColumnWidth && width > height
    readonly property bool roomy: beside || width >= Theme.contentWidth
    readonly property int margin: beside ? Theme.largeSpacing
                                         : Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))
    readonly property int columnWidth: beside ? Math.floor((Math.min(width, 2 * Theme.contentWidth) - 3 * margin) / 2)
                                              : width - 2 * margin

    signal leaveRequested()

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
        else
            event.accepted = false;
    }

    // Has the keyboard while no control has it; its keys are the screen's.
    Item {
        id: rest

        focus: true
    }

    NavigationHeader {
        id: header

        x: Theme.spacing
        width: parent.width - 2 * Theme.spacing
        text: screen.practice.exerciseName
        onBack: screen.leaveRequested()

        RoundButton {
            objectName: "settings_button"
            text: "Settings"
            iconName: "gear"
            size: RoundButton.Small
            flat: true
            onClicked: screen.practice.settingsTapped()
        }
    }

    Flickable {
        id: scroller

        // Reaches under the header, where the shadow of the first card ends.
        anchors.top: header.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: page.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Item {
            id: page

            readonly property int stackedHeight: hero.height + tools.height + Theme.largeSpacing

            width: parent.width
            height: Math.max(scroller.height, (screen.beside ? Math.max(hero.height, tools.height) : stackedHeight)
                                              + 2 * Theme.spacing + Theme.hugeSpacing)

            // A tap beside the tempo field ends typing in it.
            TapHandler {
                onTapped: rest.forceActiveFocus(Qt.OtherFocusReason)
            }

            MetronomeCard {
                id: hero

                x: screen.beside ? Math.round((page.width - 2 * screen.columnWidth - screen.margin) / 2) : screen.margin
                y: 2 * Theme.spacing
                width: screen.columnWidth
                height: implicitHeight
                roomHeight: screen.roomy ? Math.min(scroller.height - y - Theme.hugeSpacing,
                                                    Math.round(width * 0.86)) : 0
                metronome: screen.practice.metronomeViewModel
                caption: screen.practice.savedTempoText
                savable: screen.practice.ownerSavesTempo
                saveText: screen.practice.saveTempoText
                onSaveRequested: screen.practice.saveTempo()
            }

            PracticeTools {
                id: tools

                x: screen.beside ? hero.x + hero.width + screen.margin : screen.margin
                y: screen.beside ? hero.y : hero.y + hero.height + Theme.largeSpacing
                width: screen.columnWidth
                practice: screen.practice
            }
        }

        FocusFollower {
            scroller: scroller
        }
    }

    EdgeFade {
        anchors.top: scroller.top
        width: parent.width
        visible: !scroller.atYBeginning
        atTop: true
    }

    Toast {
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.mediumSpacing
        // Not over the play button where that is beside the tools.
        x: screen.beside ? tools.x : Math.round((parent.width - width) / 2)
        width: screen.beside ? tools.width : Math.min(parent.width - 2 * screen.margin, Theme.contentWidth)
        notice: screen.practice.notice
    }
}
