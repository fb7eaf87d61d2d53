// put_document FOLDER KEY FILE: stores a file's bytes as a document, to prepare data for a measurement.

#include "model/SqliteSettingsStore.h"

#include <QFile>

#include <cstdio>

int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::fputs("usage: put_document FOLDER KEY FILE\n", stderr);
        return 2;
    }
    const auto opened = tamsel::SqliteSettingsStore::open(QString::fromLocal8Bit(argv[1]));
    QFile file(QString::fromLocal8Bit(argv[3]));
    if (!opened.store || !file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s\n", opened.failure.toUtf8().constData());
        return 1;
    }
    opened.store->setData(QString::fromLocal8Bit(argv[2]), file.readAll());
    return opened.store->writeFailure() ? 1 : 0;
}
