#pragma once

#include "copies/safe_copies.hpp"
#include "desktop/model_dialog.hpp"

#include <QAbstractTableModel>
#include <QTreeView>

namespace pelrath::desktop {

/// The rows of the list of copies as they are when sync() is called; holds none of them itself.
class CopiesTable : public QAbstractTableModel {
public:
    CopiesTable(copies::SafeCopies& model, QObject* parent);

    void sync();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    copies::SafeCopies& model_;
    int rows_ = 0;
    std::uint64_t fillings_ = 0;
    Connection rowChanged_;
};

/// The real window of SafeCopies. Object names are the controls' names.
class SafeCopiesWindow : public ModelDialog {
public:
    SafeCopiesWindow(copies::SafeCopies& model, Binder& binder);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildCopies();
    void buildTextures();
    void buildBelow();
    void pushCopies();

    template <class View>
    View& make(const char* name) {
        auto* view = new View{this};
        view->setObjectName(name);
        return *view;
    }

    copies::SafeCopies& model_;
    Binder& binder_;
    QTreeView* list_ = nullptr;
    CopiesTable* table_ = nullptr;
    bool pushing_ = false;
};

} // namespace pelrath::desktop
