import QtQuick

// Something that is seldom needed: made from `file` when it is wanted for the first time, and kept from then on, so that
// the program does not start with it. `item` is null before.
Loader {
    id: loader

    property bool wanted: shown
    // For something that comes and goes, such as a sheet: whether it is to be seen at present.
    property bool shown: false
    // Resolved, because it is read here and not where it is set.
    property url file
    // Values for the properties that it requires.
    property var given: ({})

    function make() {
        if (wanted && item === null)
            setSource(file, given);
    }

    onWantedChanged: make()
    Component.onCompleted: make()
}
