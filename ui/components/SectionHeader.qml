import QtQuick
import Tamsel.Ui

// The title above a section; pressing it folds the section away and back.
BaseButton {
    id: header

    property string iconName
    property bool expanded: true
    // Before `unfold`.
    property bool wasExpanded: true

    // Shows the section for a while, however it was.
    function unfold() {
        wasExpanded = expanded;
        expanded = true;
    }

    function foldAgain() {
        expanded = expanded && wasExpanded;
    }

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(title.height) + Theme.spacing)
    focusRadius: Theme.fieldRadius
    focusGap: 0
    Accessible.description: expanded ? "expanded" : "collapsed"
    onClicked: expanded = !expanded

    Item {
        anchors.fill: parent
        anchors.leftMargin: header.leftPadding
        anchors.rightMargin: header.rightPadding
        anchors.topMargin: header.topPadding
        anchors.bottomMargin: header.bottomPadding

        Icon {
            id: symbol

            x: header.mirrored ? parent.width - width - Theme.tightSpacing : Theme.tightSpacing
            anchors.verticalCenter: parent.verticalCenter
            name: header.iconName
            color: Theme.secondaryText
        }

        TextLabel {
            id: title

            anchors.left: symbol.right
            anchors.leftMargin: Theme.smallSpacing
            anchors.right: chevron.left
            anchors.rightMargin: Theme.smallSpacing
            anchors.verticalCenter: parent.verticalCenter
            wrapMode: Theme.textScale > 1.3 ? Text.Wrap : Text.NoWrap
            maximumLineCount: 2
            kind: TextLabel.SecondaryStrong
            text: header.text
            Accessible.ignored: true
        }

        Icon {
            id: chevron

            anchors.right: parent.right
            anchors.rightMargin: Theme.tightSpacing
            anchors.verticalCenter: parent.verticalCenter
            name: header.expanded ? "chevron-down" : "chevron-up"
            size: Theme.smallIcon
            color: Theme.secondaryText
        }
    }
}
