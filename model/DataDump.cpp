#include "model/DataDump.h"

#include "model/DataFile.h"
#include "model/JsonCoding.h"
#include "model/JsonFault.h"

namespace tamsel {

template <>
struct json::Fields<DataDump> {
    static constexpr std::tuple all{
        Field{"allArchivedExercises", &DataDump::allArchivedExercises},
        Field{"allExercises", &DataDump::allExercises},
        Field{"allExerciseSettings", &DataDump::allExerciseSettings},
        Field{"allHistory", &DataDump::allHistory},
        Field{"allNotes", &DataDump::allNotes},
    };
};

template bool json::append(QByteArray&, const DataDump&);
template std::optional<QByteArray> json::encode(const DataDump&);
template json::Result<DataDump> json::decode(QByteArray, QStringView);

json::Result<DataDump> decodeDataDump(QByteArray document) {
    json::Reader reader;
    DataDump dump;
    if (reader.readDocument(std::move(document), dump))
        return dump;
    QString message = reader.error({});
    const QByteArrayView text = reader.document();
    const auto faulty = json::firstFaultyByte(text);
    if (faulty && *faulty < text.size())
        message += QStringLiteral(", at byte %1").arg(*faulty + 1);
    else if (faulty && !text.trimmed().isEmpty())
        message += QStringLiteral(", at its end");
    return json::Error{message};
}

std::optional<DataDump> readDataDump(const QString& path) {
    auto bytes = datafile::read(path);
    if (!bytes)
        return std::nullopt;
    auto dump = json::decode<DataDump>(*std::move(bytes));
    return dump ? std::optional(*std::move(dump)) : std::nullopt;
}

} // namespace tamsel
