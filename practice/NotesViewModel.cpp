#include "practice/NotesViewModel.h"

#include "platform/FatalError.h"
#include "reports/Formats.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace tamsel {

QList<NotesSection> noteSections(const QList<Note>& notes, const Calendar& calendar) {
    QList<Note> newestFirst(notes.crbegin(), notes.crend());
    std::ranges::stable_sort(newestFirst, [](const Note& a, const Note& b) { return b.date < a.date; });
    QList<NotesSection> sections;
    for (const Note& note : std::as_const(newestFirst)) {
        if (sections.isEmpty() || !calendar.sameDay(sections.constLast().rows.constFirst().date, note.date))
            sections += NotesSection{dayTitle(note.date, calendar), {}};
        sections.last().rows += note;
    }
    return sections;
}

NotesViewModel::NotesViewModel(Notes& notes, const Platform& platform, const Exercise& exercise,
                               std::shared_ptr<NoteDrafts> drafts)
    : m_notes(notes), m_platform(platform), m_exercise(exercise), m_drafts(std::move(drafts)),
      m_notice(platform.mainQueue) {
    reload();
}

void NotesViewModel::leave() {
    closeEditor();
    m_notice.end();
}

void NotesViewModel::reload() {
    m_sections = noteSections(m_notes.notes(m_exercise).value_or(QList<Note>()), m_platform.calendar);
    QList<NoteListModel::Row> rows;
    for (const NotesSection& section : std::as_const(m_sections)) {
        for (const Note& each : section.rows)
            rows += {each.id, each.value, &each == &section.rows.constFirst() ? section.title : QString()};
    }
    m_rows.setRows(rows);
    Q_EMIT notesChanged();
}

std::optional<Note> NotesViewModel::note(const QUuid& id) const {
    for (const NotesSection& section : m_sections) {
        const auto found = std::ranges::find(section.rows, id, &Note::id);
        if (found != section.rows.end())
            return *found;
    }
    return std::nullopt;
}

// Editor

void NotesViewModel::setEditorText(const QString& text) {
    if (m_editorText == text)
        return;
    m_editorText = text;
    Q_EMIT editorTextChanged();
}

void NotesViewModel::openEditor(const QUuid& id, const QString& text) {
    m_edited = id;
    setEditorText(m_drafts->value(id, text));
    m_isShowingEditor = true;
    Q_EMIT editorChanged();
}

void NotesViewModel::hideEditor() {
    m_isShowingEditor = false;
    Q_EMIT editorChanged();
}

void NotesViewModel::addTapped() {
    openEditor({}, {});
}

void NotesViewModel::editTapped(const QString& noteId) {
    if (const auto found = note(QUuid::fromString(noteId)))
        openEditor(found->id, found->value);
}

void NotesViewModel::saveEditor() {
    if (!canSave())
        return;
    if (m_edited.isNull()) {
        m_notes.add({m_platform.clock.now(), m_platform.uuids.next(), m_editorText}, m_exercise);
    } else {
        auto edited = note(m_edited);
        if (!edited)
            fatalError(QStringLiteral("Row to edit is not found in any sections"));
        edited->value = m_editorText;
        m_notes.update(*edited, m_exercise);
    }
    m_drafts->remove(m_edited);
    hideEditor();
    reload();
}

void NotesViewModel::cancelEditor() {
    m_drafts->remove(m_edited);
    hideEditor();
}

void NotesViewModel::closeEditor() {
    if (!m_isShowingEditor)
        return;
    m_drafts->insert(m_edited, m_editorText);
    hideEditor();
}

// Deleting

void NotesViewModel::deleteTapped(const QString& noteId) {
    const QList<Note> stored = m_notes.notes(m_exercise).value_or(QList<Note>());
    const auto found = std::ranges::find(stored, QUuid::fromString(noteId), &Note::id);
    if (found == stored.end())
        return;
    if (!m_notice.isShown())
        m_deleted.clear();
    m_deleted += {*found, found - stored.begin()};
    m_notes.remove(*found, m_exercise);
    reload();
    m_notice.offerUndo(m_deleted.size() == 1 ? QStringLiteral("Note deleted")
                                             : QStringLiteral("%1 notes deleted").arg(m_deleted.size()),
                       [this] { undoDeletion(); });
}

void NotesViewModel::undoDeletion() {
    for (const Deleted& deleted : std::views::reverse(std::as_const(m_deleted)))
        m_notes.insert(deleted.note, deleted.index, m_exercise);
    m_deleted.clear();
    reload();
}

} // namespace tamsel
