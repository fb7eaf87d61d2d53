import QtQuick
import Tamsel.Ui

// One piece of text in one of Tamsel's styles, on one line unless `wrapMode` says otherwise. It starts at the leading
// edge of the screen's direction whatever its own script, and what does not fit is elided. Never read as markup.
Text {
    id: label

    enum Kind { Title, Heading, Body, Strong, Secondary, SecondaryStrong, Caption }

    property int kind: TextLabel.Body

    readonly property bool quiet: kind >= TextLabel.Secondary

    textFormat: Text.PlainText
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignLeft
    color: quiet ? Theme.secondaryText : Theme.text
    font.family: Theme.fontFamily
    font.pixelSize: Theme.labelSizes[kind]
    font.weight: Theme.labelWeights[kind]
}
