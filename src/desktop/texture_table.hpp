#pragma once

#include "desktop/bind.hpp"
#include "several/texture_list.hpp"

#include <QAbstractTableModel>
#include <QTreeView>

namespace pelrath::desktop {

/// The rows of a list of textures as they are when sync() is called; holds none of them itself.
class TextureTableModel : public QAbstractTableModel {
public:
    TextureTableModel(several::TextureList& list, Refresh& refresh, QWidget& view)
        : QAbstractTableModel(&view), list_(list), refresh_(refresh), view_(view) {}

    void sync();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The user's check mark.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    several::TextureList& list_;
    Refresh& refresh_;
    const QWidget& view_;
    std::uint64_t fillings_ = 0;
    int rows_ = 0;
};

/// Shows textures with check marks: a click anywhere on a row and the space bar turn its mark over, Ctrl+A
/// sets all.
class TextureTable : public QTreeView {
public:
    explicit TextureTable(QWidget* parent);

    void bindTo(several::TextureList& list, Binder& binder);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void turn(const QModelIndex& row);

    several::TextureList* list_ = nullptr;
    Refresh* refresh_ = nullptr;
    TextureTableModel* rows_ = nullptr;
    bool pushing_ = false;
};

} // namespace pelrath::desktop
