pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.List
import Tamsel.Ui

// A word of thanks, and the tip jar.
FocusScope {
    id: screen

    required property ThanksViewModel thanks

    focus: true

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    function appear() {
        if (visible)
            thanks.onAppear();
    }

    onVisibleChanged: appear()
    Component.onCompleted: appear()

    Keys.onDownPressed: scroller.scroll(Theme.touchTarget)
    Keys.onUpPressed: scroller.scroll(-Theme.touchTarget)

    // Has the keyboard while no control has it; its keys are the screen's.
    Item {
        id: rest

        focus: true
    }

    ScreenTitle {
        id: title

        x: screen.margin
        width: screen.width - 2 * screen.margin
        text: screen.thanks.navigationTitle
    }

    Flickable {
        id: scroller

        // Something in it that has the keyboard is brought into sight.
        function show(item: Item) {
            const top = item.mapToItem(contentItem, 0, 0).y;
            contentY = Math.max(0, Math.min(Math.max(contentY, top + item.height + Theme.largeSpacing - height),
                                            top - Theme.largeSpacing));
        }

        function scroll(way: int) {
            contentY = Math.max(0, Math.min(Math.max(0, contentHeight - height), contentY + way));
        }

        objectName: "thanks_page"
        anchors.top: title.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: page.height + 2 * Theme.spacing + Theme.hugeSpacing
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: page

            x: screen.margin
            y: 2 * Theme.spacing
            width: screen.width - 2 * screen.margin
            spacing: Theme.largeSpacing

            Card {
                width: parent.width
                radius: Theme.heroRadius
                padding: Theme.largeSpacing + Theme.tightSpacing

                Column {
                    width: parent.width
                    spacing: Theme.mediumSpacing

                    Icon {
                        anchors.left: parent.left
                        name: "heart-filled"
                        size: Theme.largeIcon
                        color: Theme.thumbsDown
                    }

                    TextLabel {
                        width: parent.width
                        wrapMode: Text.Wrap
                        kind: TextLabel.Heading
                        text: screen.thanks.heading
                        Accessible.role: Accessible.Heading
                        Accessible.name: text
                    }

                    TextLabel {
                        width: parent.width
                        wrapMode: Text.Wrap
                        lineHeight: 1.25
                        text: screen.thanks.message
                    }

                    TextLabel {
                        width: parent.width
                        wrapMode: Text.Wrap
                        lineHeight: 1.25
                        kind: TextLabel.Secondary
                        text: screen.thanks.promise
                    }
                }
            }

            Card {
                width: parent.width
                padding: Theme.largeSpacing + Theme.tightSpacing

                Column {
                    width: parent.width
                    spacing: Theme.spacing

                    TextLabel {
                        width: parent.width
                        wrapMode: Text.Wrap
                        kind: TextLabel.Heading
                        text: screen.thanks.tipJarTitle
                        Accessible.role: Accessible.Heading
                        Accessible.name: text
                    }

                    TextLabel {
                        objectName: "tip_jar_text"
                        width: parent.width
                        wrapMode: Text.Wrap
                        lineHeight: 1.25
                        kind: TextLabel.Secondary
                        text: screen.thanks.tipJarText
                    }

                    Repeater {
                        model: screen.thanks.tips

                        // The price always shows in full, however large the text.
                        Item {
                            id: row

                            required property var modelData
                            required property int index

                            width: parent.width
                            height: Math.max(buy.height, name.height)

                            TextLabel {
                                id: name

                                anchors.left: parent.left
                                anchors.right: buy.left
                                anchors.rightMargin: Theme.spacing
                                anchors.verticalCenter: parent.verticalCenter
                                wrapMode: Text.Wrap
                                text: row.modelData.title
                                Accessible.ignored: true
                            }

                            PillButton {
                                id: buy

                                objectName: "tip_button_" + row.index
                                anchors.right: parent.right
                                anchors.verticalCenter: parent.verticalCenter
                                leftPadding: Theme.spacing
                                rightPadding: Theme.spacing
                                enabled: screen.thanks.canTip
                                text: row.modelData.title + ", " + row.modelData.price
                                caption: row.modelData.price
                                onClicked: screen.thanks.tip(row.index)
                                onActiveFocusChanged: {
                                    if (activeFocus)
                                        scroller.show(this);
                                }
                            }
                        }
                    }

                    PillButton {
                        objectName: "ask_again_button"
                        anchors.left: parent.left
                        visible: screen.thanks.canAskAgain
                        text: screen.thanks.askAgainText
                        onClicked: {
                            // It goes away, and the keyboard shall not go with it.
                            rest.forceActiveFocus(Qt.OtherFocusReason);
                            screen.thanks.askAgain();
                        }
                        onActiveFocusChanged: {
                            if (activeFocus)
                                scroller.show(this);
                        }
                    }
                }
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
