#pragma once

#include "model/Exercise.h"
#include "model/Note.h"
#include "model/Notes.h"
#include "platform/Platform.h"
#include "practice/NoteListModel.h"
#include "practice/TimedNotice.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace tamsel {

// Texts that were begun and not saved, by the note that they change; a new note's under the null identifier.
using NoteDrafts = QHash<QUuid, QString>;

// The notes of one day.
struct NotesSection {
    QString title;    // "03/14/24"
    QList<Note> rows; // newest first

    bool operator==(const NotesSection&) const = default;
};

// The notes by day, newest day first. Of two notes of the same moment, the one stored later comes first.
QList<NotesSection> noteSections(const QList<Note>& notes, const Calendar& calendar);

// The notes screen of one item: its notes by day, and the editor that adds and changes them. Main thread only.
class NotesViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(tamsel::NoteListModel* rows READ rows CONSTANT FINAL)
    Q_PROPERTY(tamsel::TimedNotice* notice READ notice CONSTANT FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY notesChanged FINAL)
    Q_PROPERTY(bool isShowingEditor READ isShowingEditor NOTIFY editorChanged FINAL)
    Q_PROPERTY(QString editorTitle READ editorTitle NOTIFY editorChanged FINAL)
    Q_PROPERTY(QString editorText READ editorText WRITE setEditorText NOTIFY editorTextChanged FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY editorTextChanged FINAL)

public:
    // The drafts are those of the practice screen that it was opened from.
    NotesViewModel(Notes& notes, const Platform& platform, const Exercise& exercise,
                   std::shared_ptr<NoteDrafts> drafts);

    const QList<NotesSection>& sections() const { return m_sections; }
    NoteListModel* rows() { return &m_rows; }
    TimedNotice* notice() { return &m_notice; }
    bool isEmpty() const { return m_sections.isEmpty(); }

    bool isShowingEditor() const { return m_isShowingEditor; }
    QString editorTitle() const { return m_edited.isNull() ? QStringLiteral("New note") : QStringLiteral("Edit note"); }
    const QString& editorText() const { return m_editorText; }
    void setEditorText(const QString& text);
    bool canSave() const { return !m_editorText.trimmed().isEmpty(); }

    // The screen is left. What was typed is kept.
    void leave();

    // Reads the notes anew.
    void reload();

    Q_INVOKABLE void addTapped();
    Q_INVOKABLE void editTapped(const QString& noteId);
    // Deletes at once, and offers for some seconds to undo it: this one and those deleted shortly before.
    Q_INVOKABLE void deleteTapped(const QString& noteId);

    // Stops the program when the note that was edited is not on the screen any more. A blank text is not saved.
    Q_INVOKABLE void saveEditor();
    // Drops what was typed.
    Q_INVOKABLE void cancelEditor();
    // Keeps what was typed for the next time.
    Q_INVOKABLE void closeEditor();

Q_SIGNALS:
    void notesChanged();
    void editorChanged();
    void editorTextChanged();

private:
    struct Deleted {
        Note note;
        qsizetype index = 0; // in the stored list, when it was deleted
    };

    std::optional<Note> note(const QUuid& id) const;
    void openEditor(const QUuid& id, const QString& text);
    void hideEditor();
    void undoDeletion();

    Notes& m_notes;
    const Platform m_platform;
    const Exercise m_exercise;
    const std::shared_ptr<NoteDrafts> m_drafts;
    QList<NotesSection> m_sections;
    NoteListModel m_rows;
    TimedNotice m_notice;
    QList<Deleted> m_deleted;
    bool m_isShowingEditor = false;
    QUuid m_edited; // null for a new note
    QString m_editorText;
};

} // namespace tamsel
