pragma Singleton

import QtQuick
import Tamsel.Ui

// Every colour, radius, distance and type size of Tamsel, once. Lengths are in units of layout. There are no durations:
// nothing on the screens moves by itself.
QtObject {
    id: theme

    readonly property bool dark: Appearance.dark
    readonly property bool reducedMotion: Appearance.reducedMotion
    readonly property real textScale: Appearance.textScale
    readonly property real devicePixelRatio: Appearance.devicePixelRatio

    // Colours. Text on the ground keeps 4.5 : 1 in both schemes, and what is 24 or larger 3 : 1.
    readonly property color ground: dark ? "#22262f" : "#e9edf3"
    readonly property color text: dark ? "#edeff5" : "#252b39"
    readonly property color secondaryText: dark ? "#a3acc0" : "#5a6478"
    readonly property color accent: dark ? "#98a2ff" : "#4a55c9"
    readonly property color accentPressed: dark ? "#858fe8" : "#3f49b0"
    readonly property color accentInk: dark ? "#22262f" : "#ffffff"
    readonly property color secondAccent: dark ? "#f0a06a" : "#e07a3f"
    readonly property color thumbsUp: dark ? "#55b878" : "#35894f"
    readonly property color thumbsDown: dark ? "#e27368" : "#c8574b"
    readonly property color destructive: dark ? "#f08b81" : "#b23c30"
    readonly property color separator: dark ? "#363c48" : "#d0d7e2"
    readonly property color track: dark ? "#39404d" : "#d0d7e2"
    readonly property color idleDot: dark ? "#7d869a" : "#78819a"
    readonly property color pressedRow: dark ? "#2b303b" : "#dde3ec"
    readonly property color accentHaze: dark ? "#2e98a2ff" : "#244a55c9"
    readonly property color bell: dark ? "#f0a06a" : "#cc6529"
    // Flashing over an area is motion too.
    readonly property color bellHaze: reducedMotion ? "transparent" : dark ? "#1cf0a06a" : "#1ae07a3f"
    readonly property color warningGround: dark ? "#4a3524" : "#fbe3d2"
    readonly property color warningInk: dark ? "#ffd9bd" : "#6b3413"
    readonly property color clearGround: dark ? "#0022262f" : "#00e9edf3"
    readonly property color scrim: dark ? "#99000000" : "#59252b39"
    readonly property color shadow: dark ? "#73000000" : "#8c9eacc4"
    readonly property color light: dark ? "#0effffff" : "#f2ffffff"

    // With text so large, what otherwise stands side by side would not be readable.
    readonly property bool tilesStacked: textScale > 1.35

    // Of items in charts, in the order of ItemColors, and what the least practised share. 3 : 1 on the ground.
    readonly property var chartColors: dark
        ? ["#98a2ff", "#f0a06a", "#6fcf97", "#e58fc8", "#5cc4d2", "#ef8b80",
           "#dcc05a", "#7ab8f2", "#bd9af2", "#aac46a", "#cfa083", "#a0b2d4"]
        : ["#4a55c9", "#c8641f", "#2f8a58", "#b3478f", "#1b8a99", "#c8574b",
           "#8f7210", "#2a77bb", "#7b4fc0", "#62802a", "#8d5a3b", "#56688a"]
    readonly property color chartShared: dark ? "#707b91" : "#7c879c"
    readonly property real secondTone: dark ? 1.45 : 1.8

    readonly property real disabledOpacity: 0.45

    // Corners
    readonly property int heroRadius: 28
    readonly property int cardRadius: 20
    readonly property int fieldRadius: 14

    // Distances
    readonly property int hairline: 1
    readonly property int tightSpacing: 4
    readonly property int smallSpacing: 8
    readonly property int spacing: 12
    readonly property int mediumSpacing: 16
    readonly property int largeSpacing: 20
    readonly property int hugeSpacing: 32
    readonly property int screenMargin: 20
    readonly property int focusRingWidth: 2

    // Sizes
    readonly property int touchTarget: 44
    readonly property int switchWidth: 52
    readonly property int switchHeight: 30
    readonly property int smallButton: 44
    readonly property int regularButton: 52
    readonly property int largeButton: 64
    readonly property int extraLargeButton: 104
    // Icons grow with the text beside them, up to where they would crowd it out.
    readonly property real iconScale: Math.max(1, Math.min(textScale, 1.5))
    readonly property int smallIcon: Math.round(16 * iconScale)
    readonly property int icon: Math.round(20 * iconScale)
    readonly property int tabIcon: Math.round(24 * iconScale)
    readonly property int largeIcon: Math.round(32 * iconScale)
    readonly property int hugeIcon: 44
    // In the order of RoundButton.Size.
    readonly property var buttonSides: [smallButton, regularButton, largeButton, extraLargeButton]
    readonly property var buttonIcons: [Math.round(18 * iconScale), Math.round(20 * iconScale),
                                        Math.round(24 * iconScale), 44]
    // A column of text and cards is not wider than this, however wide the window.
    readonly property int contentWidth: 560
    // From this width on, a screen has room for two columns.
    readonly property int twoColumnWidth: 700
    readonly property int dialogWidth: 340
    // Of the bars of a chart, without its marks
    readonly property int chartHeight: 180
    readonly property int chartCorner: 4
    readonly property int chartDot: 10
    // How far a finger pulls from the edge to go back.
    readonly property int backSwipeDistance: 72

    // Type, before the system's text size is applied
    readonly property string fontFamily: "Inter"
    readonly property int tempoSize: scaled(84)
    readonly property int clockSize: scaled(38)
    readonly property int titleSize: scaled(30)
    readonly property int numberSize: scaled(28)
    readonly property int headingSize: scaled(20)
    readonly property int bodySize: scaled(17)
    readonly property int secondarySize: scaled(15)
    readonly property int captionSize: scaled(13)
    // Both in the order of TextLabel.Kind.
    readonly property var labelSizes: [titleSize, headingSize, bodySize, bodySize, secondarySize, secondarySize,
                                       captionSize]
    readonly property var labelWeights: [Font.Bold, Font.DemiBold, Font.Normal, Font.DemiBold, Font.Normal,
                                         Font.DemiBold, Font.Medium]

    // How far a shadow of each depth is moved away, and how far it fades.
    enum Depth { Shallow, Middle, Deep }
    readonly property var shadowOffsets: [3, 5, 7]
    readonly property var shadowBlurs: [8, 12, 16]

    // The two shadows of a surface, as the picture provider reads them: of the usual ground, and inside a pressed accent.
    readonly property string shadowColors: hex(shadow) + "/" + hex(light) + "/" + devicePixelRatio
    readonly property string pressedAccentShadowColors: "80161b52/40ffffff/" + devicePixelRatio

    // Of an index of ItemColors: a colour, its second tone, or what items share.
    function chartColor(index: int): color {
        if (index < 0)
            return chartShared;
        const color = chartColors[index % chartColors.length];
        return index < chartColors.length ? color : Qt.darker(color, secondTone);
    }

    function scaled(size: int): int {
        return Math.round(size * theme.textScale);
    }

    // The colour as the picture providers read it.
    function hex(color: color): string {
        return color.toString().substring(1);
    }
}
