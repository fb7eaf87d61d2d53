#include "app/Tour.h"
#include "model/DataFile.h"
#include "model/Json.h"

#include <algorithm>

namespace tamsel {

// All data out of the app as a document, the document in again, that taken back, and a backup looked at.
void Tour::exchangeData() {
    DataViewModel& data = *m_app.content().dataViewModel();
    const auto document = [this] {
        return json::encode(m_app.singletons().dataStores().makeDataDump()).value_or(QByteArray());
    };
    const QString path = m_folder + QStringLiteral("/my journal.tamsel");
    const QByteArray before = document();

    tap(QStringLiteral("history_tab"));
    tap(QStringLiteral("share_button"));
    find(QStringLiteral("data_save_button"));
    picture(QStringLiteral("data"));
    // What the desktop's dialog would hand over.
    data.save(QUrl::fromLocalFile(path));
    waitUntil(QStringLiteral("the document is saved"), [&] { return !data.isBusy(); });
    const auto saved = datafile::read(path);
    expect(QStringLiteral("it holds all data"), saved && *saved == before);
    tell(QStringLiteral("saved all data as “my journal.tamsel”, %1 bytes").arg(before.size()));

    m_app.singletons().exercises.add(QStringLiteral("Not in the document"));
    m_app.content().openDocument(path);
    waitUntil(QStringLiteral("the preview comes"), [&] { return data.previewIsPresented(); });
    picture(QStringLiteral("data-preview"));
    tap(QStringLiteral("replace_confirm_button"));
    waitUntil(QStringLiteral("the import can be taken back"), [&] { return data.canUndo(); });
    expect(QStringLiteral("all data is that of the document"), document() == before);
    picture(QStringLiteral("data-imported"));
    tap(QStringLiteral("data_undo_button"));
    waitUntil(QStringLiteral("it is taken back"), [&] { return !data.canUndo() && !data.isBusy(); });
    expect(QStringLiteral("what came after the document is there again"),
           m_app.singletons().exercises.items().first().name == QStringLiteral("Not in the document"));

    tap(QStringLiteral("data_backups_button"));
    waitUntil(QStringLiteral("the backups before both changes can be read"), [&] {
        const QList<BackupRow>& rows = data.backups()->rows();
        return rows.size() >= 2 && std::ranges::all_of(rows, &BackupRow::isUsable);
    });
    picture(QStringLiteral("backups"));
    tell(QStringLiteral("imported it after a preview, took that back, and found both backups verified"));
}

} // namespace tamsel
