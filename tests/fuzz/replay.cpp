#include <QDir>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdio>

// Feeds every file of a folder to what libFuzzer fuzzes, without libFuzzer: fuzz_replay <folder>. What was once found
// stays found.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_replay <folder>\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    int count = 0;
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(file.fileName()));
            return 1;
        }
        // Told first: the last one is the one that crashed.
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
        ++count;
    }
    std::printf("%d replayed\n", count);
    return count > 0 ? 0 : 1;
}
