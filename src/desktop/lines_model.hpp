#pragma once

#include <QAbstractListModel>

#include <cstdint>

namespace pelrath::desktop {

/// The rows of a list whose lines are only ever appended or cleared, as they are when syncRows() is called.
class LinesModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : rows_;
    }

protected:
    /// Takes notice of the lines that came or went.
    void syncRows(int count, std::uint64_t clearances);

private:
    int rows_ = 0;
    std::uint64_t clearances_ = 0;
};

} // namespace pelrath::desktop
