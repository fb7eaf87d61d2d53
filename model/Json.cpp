#include "model/Json.h"

#include "model/JsonCoding.h"

#include <vector>

namespace tamsel::json {

namespace {

std::string_view viewOf(QLatin1String text) {
    return {text.data(), static_cast<std::size_t>(text.size())};
}

} // namespace

// One document type each.
#define TAMSEL_JSON_DOCUMENT(...)                                                                                      \
    template bool append(QByteArray&, const __VA_ARGS__&);                                                             \
    template std::optional<QByteArray> encode(const __VA_ARGS__&);                                                     \
    template Result<__VA_ARGS__> decode(QByteArray, QStringView)

TAMSEL_JSON_DOCUMENT(qint64);
TAMSEL_JSON_DOCUMENT(Exercise);
TAMSEL_JSON_DOCUMENT(ExerciseSettings);
TAMSEL_JSON_DOCUMENT(PracticeSession);
TAMSEL_JSON_DOCUMENT(HistoryEvent);
TAMSEL_JSON_DOCUMENT(Note);
TAMSEL_JSON_DOCUMENT(QList<Exercise>);
TAMSEL_JSON_DOCUMENT(QList<PracticeSession>);
TAMSEL_JSON_DOCUMENT(QList<HistoryEvent>);
TAMSEL_JSON_DOCUMENT(QList<Note>);

#undef TAMSEL_JSON_DOCUMENT

QByteArray encodeCase(QLatin1String name) {
    QByteArray document;
    Writer writer(document);
    writer.writeCase(viewOf(name));
    writer.finish();
    return document;
}

Result<qsizetype> decodeCase(QByteArray document, std::initializer_list<QLatin1String> names, QStringView place) {
    std::vector<std::string_view> views;
    for (const QLatin1String name : names)
        views.push_back(viewOf(name));
    Reader reader;
    std::size_t index = 0;
    if (!reader.readCaseDocument(std::move(document), views, index))
        return Error{reader.error(place)};
    return static_cast<qsizetype>(index);
}

} // namespace tamsel::json
