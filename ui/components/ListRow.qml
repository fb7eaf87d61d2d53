pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// One row of a section's card: a name, a line of detail below it and a text at the end. The card itself is drawn by the
// section; all but the last row draw the line that parts them from the next. With `actions`, a swipe uncovers them, and
// a long press, Shift+Enter or the menu key asks for them; Delete chooses the last of them. A right click is for whoever
// shows the rows: in here it would count as a tap.
// Based on a template of its own because a screen reader takes the role from the template, whatever is said here.
T.SwipeDelegate {
    id: row

    // Required, so that a view fills it from its model's role of that name.
    required property string detail
    property string trailing
    property bool last: false
    // As RowActions takes them.
    property var actions: []
    property bool hasLongPress: actions.length > 0

    readonly property bool swiped: swipe.position !== 0
    // It lay aside when it was last pressed.
    property bool wasSwiped: false
    // The actions behind it, once they have been seen.
    property RowActions uncovered: null

    // A tap, Enter or Space. One on a row that is swiped aside only brings it back.
    signal opened()
    signal longPressed()
    signal actionChosen(index: int)

    // A row that the program has closed and that is swiped again takes the taps on its actions itself.
    function tappedAside() {
        const index = uncovered === null ? -1 : uncovered.indexAt(mapToItem(uncovered, pressX, pressY));
        if (index < 0)
            swipe.close();
        else
            choose(index);
    }

    function choose(index: int) {
        swipe.close();
        actionChosen(index);
    }

    implicitHeight: Math.max(Math.round(54 * Theme.textScale), Theme.touchTarget,
                             Math.ceil(implicitContentHeight) + 2 * Theme.smallSpacing)
    leftPadding: Theme.mediumSpacing
    rightPadding: Theme.mediumSpacing
    padding: 0
    clip: swiped
    focusPolicy: Qt.TabFocus
    swipe.enabled: actions.length > 0
    swipe.right: mirrored || actions.length === 0 ? null : behind
    swipe.left: mirrored && actions.length > 0 ? behind : null
    onPressed: wasSwiped = swiped
    onClicked: swiped ? tappedAside() : opened()
    // That is what comes of a tap on a row that lies aside, after what lies behind it has answered.
    onCanceled: {
        if (wasSwiped && swiped)
            tappedAside();
    }
    // It may come to show something else.
    onTextChanged: swipe.close()
    Keys.forwardTo: [behavior]
    Keys.onDeletePressed: event => {
        event.accepted = row.actions.length > 0;
        if (event.accepted && !event.isAutoRepeat)
            row.choose(row.actions.length - 1);
    }
    Accessible.name: text
    Accessible.description: trailing === "" ? detail : detail === "" ? trailing : detail + ", " + trailing
    Accessible.focusable: true
    Accessible.onPressAction: row.opened()

    Component {
        id: behind

        RowActions {
            // Without a parent while it goes.
            anchors.right: parent ? parent.right : undefined
            height: row.height
            visible: row.swiped
            actions: row.actions
            onChosen: index => row.choose(index)
            Component.onCompleted: row.uncovered = this
        }
    }

    PressBehavior {
        id: behavior

        control: row
        radius: Theme.fieldRadius
        gap: -3
        hasLongPress: row.hasLongPress
        takesRightClick: false
        onLongPressed: row.longPressed()
    }

    background: Item {
        Rectangle {
            visible: row.swiped
            anchors.fill: parent
            color: Theme.ground
        }

        Rectangle {
            visible: row.down && !row.swiped
            anchors.fill: parent
            anchors.margins: Theme.tightSpacing
            radius: Theme.fieldRadius
            color: Theme.pressedRow
        }

        Rectangle {
            visible: !row.last
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: Theme.hairline
            color: Theme.separator
        }
    }

    // qmllint disable deferred-property-id
    contentItem: Item {
        implicitHeight: words.height

        Column {
            id: words

            anchors.left: parent.left
            anchors.right: amount.left
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            spacing: 1

            TextLabel {
                width: parent.width
                // Large text would leave only a few letters of a name on one line.
                wrapMode: Theme.textScale > 1.3 ? Text.Wrap : Text.NoWrap
                maximumLineCount: 2
                text: row.text
                Accessible.ignored: true
            }

            TextLabel {
                width: parent.width
                visible: text !== ""
                kind: TextLabel.Caption
                font.weight: Font.Normal
                text: row.detail
                Accessible.ignored: true
            }
        }

        TextLabel {
            id: amount

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            kind: TextLabel.Secondary
            text: row.trailing
            Accessible.ignored: true
        }
    }
    // qmllint enable deferred-property-id
}
