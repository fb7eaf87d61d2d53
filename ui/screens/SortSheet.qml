import QtQuick
import Tamsel.List
import Tamsel.Ui

// The choices of a toolbar's menu; those that lead to more choices show them in their place.
ActionSheet {
    id: sheet

    required property ToolbarMenuViewModel menu

    // Which option's choices are shown; -1 for the options themselves.
    property int level: -1

    objectName: "sort_sheet"
    title: level < 0 ? menu.title : menu.options[level].title
    options: level < 0 ? menu.options : menu.suboptions(level)
    onChosen: index => {
        const from = level;
        level = from < 0 && menu.suboptions(index).length > 0 ? index : -1;
        if (level >= 0)
            opener.shown = true;
        else if (from >= 0)
            menu.chooseSuboption(from, index);
        else
            menu.choose(index);
    }
    onDismissed: level = -1
}
