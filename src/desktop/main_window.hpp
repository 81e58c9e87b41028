#pragma once

#include "desktop/bind.hpp"
#include "desktop/viewport_device.hpp"
#include "mainwindow/main.hpp"

#include <QWidget>

class QMenu;

namespace pelrath::desktop {

class ListBoxView;
class ViewportLook;

/// The real window of Main: a widget for each of its controls, at the place its model gives it. Object names
/// are the controls' names, an index appended where there are several.
class MainWindow : public QWidget {
public:
    MainWindow(Main& model, Binder& binder, QtViewportSurface& surface);

    /// Shows the window where its model says, or as near as its title bar can be reached, and no larger than
    /// the screen.
    void appear();
    /// What the model does when it becomes the program's active window.
    void activate();

    std::function<void()> help;            ///< what F1 does
    std::function<void()> several;         ///< what Ctrl+B does
    std::function<void()> safeCopies;      ///< what Ctrl+K does
    std::function<void(QMenu&)> ofArchive; ///< ends the menus of the panes
    std::function<void()> ready; ///< runs once, as a command of the user's, behind the first activation

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildArchiveFrame();
    void buildViewFrame();
    void buildViewport(QtViewportSurface& surface);
    void buildStrip();
    void buildStructure();
    void buildSaveBar();
    ListBoxView& buildPane(Pane pane);
    void addMenu(ListBoxView& view, Pane pane);
    void orderTabs();
    /// What the window takes beside its controls.
    void buildWays();
    void followWindow();
    void pushWindow();
    void end();
    void adoptSize();
    /// Makes the window no larger than the room, in pixels, as far as its smallest size allows.
    void fitInto(const QSize& room);
    void adoptPlace();

    template <class View>
    View& make(const QString& name, QWidget& parent) {
        auto* view = new View{&parent};
        view->setObjectName(name);
        return *view;
    }
    QLabel& label(Label& model, const QString& name, QWidget& parent, QChar mnemonic = {});
    QLineEdit& shownText(TextBox& model, const QString& name, QWidget& parent);

    Main& model_;
    Binder& binder_;
    Connections connections_;
    ViewportLook* look_ = nullptr;
    bool placed_ = false;
    bool activated_ = false;
    bool moved_ = false;
    bool closing_ = false; ///< asked for, and waiting for what runs
};

} // namespace pelrath::desktop
