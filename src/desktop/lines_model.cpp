#include "desktop/lines_model.hpp"

namespace pelrath::desktop {

void LinesModel::syncRows(int count, std::uint64_t clearances) {
    if (clearances_ != clearances) {
        beginResetModel();
        clearances_ = clearances;
        rows_ = count;
        endResetModel();
    } else if (rows_ < count) {
        beginInsertRows({}, rows_, count - 1);
        rows_ = count;
        endInsertRows();
    }
}

} // namespace pelrath::desktop
