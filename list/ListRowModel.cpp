#include "list/ListRowModel.h"

namespace tamsel {

QVariant ListRowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count() || role < NameRole || role > DurationTextRole)
        return {};
    return text(index.row(), static_cast<Role>(role));
}

QHash<int, QByteArray> ListRowModel::roleNames() const {
    return {{NameRole, "name"}, {DetailRole, "detail"}, {DurationTextRole, "durationText"}};
}

} // namespace tamsel
