#include "desktop/main_window.hpp"

#include "desktop/archive_drop.hpp"
#include "desktop/artwork.hpp"
#include "desktop/bordered_box.hpp"
#include "desktop/key_line_edit.hpp"
#include "desktop/line_title.hpp"
#include "desktop/list_box_view.hpp"
#include "desktop/pane_menu.hpp"
#include "desktop/placing.hpp"
#include "desktop/save_bar_view.hpp"
#include "desktop/swatch_button.hpp"
#include "desktop/viewport_look.hpp"
#include "desktop/window_keys.hpp"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace pelrath::desktop {

namespace {

// The frame that the layout reckons with, whatever the window manager's own is like: it leaves the layout's
// margin free on the right and at the bottom.
constexpr double frameWidth = 100;
constexpr double frameHeight = 350;

// What a window manager may put around the window; known only once it is shown.
constexpr QSize managersFrame{8, 40}; // pixels

constexpr int activationPatience = 300; // milliseconds
constexpr int settlingTime = 100;       // milliseconds

QString numbered(const char* name, std::size_t index) { return QString{name} + QString::number(index); }

QColor swatchColor(std::uint32_t blueGreenRed) {
    const auto part = [blueGreenRed](unsigned shift) {
        return static_cast<int>((blueGreenRed >> shift) & 0xFFU);
    };
    return {part(0), part(8), part(16)};
}

} // namespace

MainWindow::MainWindow(Main& model, Binder& binder, QtViewportSurface& surface)
    : model_(model), binder_(binder) {
    setObjectName("Main");
    model_.window.setFrame(frameWidth, frameHeight);
    buildArchiveFrame();
    buildViewFrame();
    buildViewport(surface);
    buildStructure();
    buildSaveBar();
    orderTabs();
    buildWays();
    followWindow();
}

QLabel& MainWindow::label(Label& model, const QString& name, QWidget& parent, QChar mnemonic) {
    QLabel& view = make<QLabel>(name, parent);
    view.setTextFormat(Qt::PlainText);
    binder_.bind(model, view, mnemonic);
    return view;
}

QLineEdit& MainWindow::shownText(TextBox& model, const QString& name, QWidget& parent) {
    QLineEdit& view = make<QLineEdit>(name, parent);
    binder_.bind(model, view);
    return view;
}

void MainWindow::buildArchiveFrame() {
    QFrame& frame = make<QFrame>("Frame1", *this);
    binder_.bind(model_.Frame1, frame);
    QLabel& path = label(model_.Label1, "Label1", frame, 'C');
    QLineEdit& pathBox = make<QLineEdit>("Text1", frame);
    binder_.bind(model_.Text1, pathBox, SeenEnd::Last);
    path.setBuddy(&pathBox);
    QPushButton& browse = make<QPushButton>("Command1", frame);
    browse.setToolTip("Choose a CDDS file (Ctrl+O)");
    binder_.bind(model_.Command1, browse);
    QPushButton& read = make<QPushButton>("cmdReadCDDS", frame);
    read.setToolTip("Read the CDDS file again (F5)");
    binder_.bind(model_.cmdReadCDDS, read, 'R');
    QLabel& folder = label(model_.Label9, "Label9", frame, 'E');
    QLineEdit& folderBox = make<QLineEdit>("Text8", frame);
    binder_.bind(model_.Text8, folderBox);
    folder.setBuddy(&folderBox);
    QPushButton& browseFolder = make<QPushButton>("cmdGetExtractInsertFolder", frame);
    browseFolder.setToolTip("Choose the Export/Import folder");
    binder_.bind(model_.cmdGetExtractInsertFolder, browseFolder);
    QPushButton& extract = make<QPushButton>("cmdExtract", frame);
    extract.setToolTip("Extract the texture to image files (Ctrl+E)");
    binder_.bind(model_.cmdExtract, extract, 'x');
    QPushButton& insert = make<QPushButton>("cmdInsert", frame);
    insert.setToolTip("Insert image files into the texture (Ctrl+I)");
    binder_.bind(model_.cmdInsert, insert, 'I');
    QLabel& search = label(model_.Label13, "Label13", frame, 'T');
    KeyLineEdit& box = make<KeyLineEdit>("incrementalSearchText", frame);
    binder_.bind(model_.incrementalSearchText, box);
    search.setBuddy(&box);
    ListBoxView& names = make<ListBoxView>("incrementalSearchList", frame);
    names.setMouseTracking(true);
    names.fitRows(2);
    names.bindTo(model_.incrementalSearchList, binder_);
}

void MainWindow::buildViewFrame() {
    QFrame& frame = make<QFrame>("Frame3", *this);
    binder_.bind(model_.Frame3, frame);
    binder_.bind(model_.chkGraphicDisplay, make<QCheckBox>("chkGraphicDisplay", frame), 'D');
    auto* modes = new QButtonGroup{&frame};
    constexpr std::array<char16_t, 3> mnemonics{u'u', u'M', u'A'};
    for (std::size_t i = 0; i < model_.cmdShow.size(); ++i) {
        QRadioButton& view = make<QRadioButton>(numbered("cmdShow", i), frame);
        binder_.bind(model_.cmdShow[i], view, *modes, mnemonics.at(i));
        // Also where it is the chosen one already.
        connect(&view, &QRadioButton::clicked, this, [this] { look_->perform(LookCommand::AllChannels); });
    }
    QLabel& background = label(model_.Label10, "Label10", frame, 'B');
    auto* colors = new QButtonGroup{&frame};
    // The chosen swatch, or the first where a stored number is none of theirs.
    for (std::size_t i = 0; i < model_.backViewportColor.size(); ++i) {
        OptionButton& option = model_.backViewportColor[i];
        SwatchButton& view = make<SwatchButton>(numbered("backViewportColor", i), frame);
        view.setToolTip(toQString(option.accessibleName()));
        binder_.bind(option, view, *colors);
        binder_.attach(option, view, [&option, &view, &background] {
            view.setColor(swatchColor(option.backColor()));
            if (option.selected() || background.buddy() == nullptr) background.setBuddy(&view);
        });
    }
}

void MainWindow::buildViewport(QtViewportSurface& surface) {
    QLabel& status = label(model_.Label11, "Label11", *this);
    status.setAlignment(Qt::AlignCenter);
    QFont bold;
    bold.setBold(true);
    status.setFont(bold);

    BorderedBox& viewport = make<BorderedBox>("dynImage", *this);
    auto* filling = new QVBoxLayout{&viewport.inside()};
    filling->setContentsMargins(0, 0, 0, 0);
    filling->setSizeConstraint(QLayout::SetNoConstraint);
    ViewportWidget& picture = make<ViewportWidget>("viewport", viewport.inside());
    filling->addWidget(&picture);
    surface.showOn(picture);
    picture.setAccessibleName("Texture viewport");
    viewport.showFocusOf(picture);
    look_ = new ViewportLook{picture, model_.look(), binder_.refresh()};
    binder_.bind(model_.dynImage, viewport);
    binder_.bind(model_.Timer1, *this);

    QFrame& sizes = make<QFrame>("frameViewportSize", *this);
    binder_.bind(model_.frameViewportSize, sizes);
    label(model_.Label12, "Label12", sizes);
    auto* group = new QButtonGroup{&sizes};
    constexpr std::array<char16_t, 2> mnemonics{u'2', u'5'};
    for (std::size_t i = 0; i < model_.viewPortSize.size(); ++i) {
        binder_.bind(model_.viewPortSize[i], make<QRadioButton>(numbered("viewPortSize", i), sizes), *group,
                     mnemonics.at(i));
    }

    buildStrip();

    QFrame& splash = make<QFrame>("SplashFrame", *this);
    splash.setAutoFillBackground(true);
    binder_.bind(model_.SplashFrame, splash);
    splash.setFrameShape(QFrame::NoFrame);
    for (std::size_t i = 0; i < model_.SplashText.size(); ++i) {
        QPlainTextEdit& text = make<QPlainTextEdit>(numbered("SplashText", i), splash);
        QFont small = binder_.screen().fixedFont();
        small.setPointSizeF(7.5);
        text.setFont(small);
        text.setFrameShape(QFrame::NoFrame);
        binder_.bind(model_.SplashText.at(i), text);
    }
    SplashArt& art = make<SplashArt>("SplashPicture", splash);
    binder_.attach(model_.SplashPicture, art, [] {});
    // The viewport is the wider one of the two and would show beside the splash.
    const auto uncover = [this, &viewport] {
        viewport.setVisible(model_.dynImage.visible() && !model_.SplashFrame.visible());
    };
    binder_.attach(model_.dynImage, viewport, uncover);
    binder_.attach(model_.SplashFrame, splash, uncover);
}

// Two lines, as wide as they ever get: nothing moves.
void MainWindow::buildStrip() {
    constexpr int lines = 2;
    constexpr int columns = 43;
    QPlainTextEdit& strip = make<QPlainTextEdit>("texelStrip", *this);
    strip.setFrameShape(QFrame::NoFrame);
    strip.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    strip.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    strip.setLineWrapMode(QPlainTextEdit::NoWrap);
    strip.setTabChangesFocus(true);
    strip.viewport()->setAutoFillBackground(false);
    strip.document()->setDocumentMargin(1);
    binder_.bind(model_.texelStrip, strip);
    QFont font = binder_.screen().fixedFont();
    const QSize room = strip.size() - QSize{2, 2};
    const auto fits = [&] {
        const QFontMetrics metrics{font};
        return metrics.horizontalAdvance('0') * columns <= room.width() &&
               metrics.lineSpacing() * lines <= room.height();
    };
    while (font.pointSizeF() > 5 && !fits()) {
        font.setPointSizeF(font.pointSizeF() - 0.5);
    }
    strip.setFont(font);
}

void MainWindow::buildStructure() {
    QLabel& headerCaption = label(model_.Label8, "Label8", *this, 'H');
    label(model_.Label2, "Label2", *this).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shownText(model_.Text3, "Text3", *this);
    label(model_.Label3, "Label3", *this).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shownText(model_.Text4, "Text4", *this);
    LineTitle& headerTitle = make<LineTitle>("Text9", *this);
    headerTitle.setFont(binder_.screen().fixedFont());
    binder_.bind(model_.Text9, headerTitle);
    ListBoxView& header = make<ListBoxView>("Output2", *this);
    header.setFont(binder_.screen().fixedFont());
    header.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header.bindTo(model_.Output[HeaderPane], binder_);
    headerTitle.standOver(header);
    headerCaption.setBuddy(&header);
    addMenu(header, HeaderPane);

    QLabel& textures = label(model_.Label4, "Label4", *this, 'F');
    label(model_.Label6, "Label6", *this).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shownText(model_.Text7, "Text7", *this);
    textures.setBuddy(&buildPane(TexturePane));
    QLabel& levels = label(model_.Label5, "Label5", *this, 'P');
    label(model_.Label7, "Label7", *this).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shownText(model_.Text5, "Text5", *this);
    levels.setBuddy(&buildPane(MipmapPane));
}

void MainWindow::buildSaveBar() {
    SaveBarView& bar = make<SaveBarView>("saveBar", *this);
    bar.bindTo(model_.saveBar, binder_);
    binder_.bind(model_.editedFiles.settling, bar);
    binder_.bind(model_.editedFiles.results, bar);
}

void MainWindow::addMenu(ListBoxView& view, Pane pane) {
    new PaneMenu{view, pane, model_.copies(), [this](QMenu& menu) {
                     if (ofArchive) ofArchive(menu);
                 }};
}

ListBoxView& MainWindow::buildPane(Pane pane) {
    BorderedBox& box = make<BorderedBox>(numbered("Picture1", pane), *this);
    binder_.bind(model_.Picture1.at(pane), box);
    QWidget& container = box.inside();
    LineTitle& title = make<LineTitle>(numbered("Text2", pane), container);
    title.setFrame(false);
    title.setFont(binder_.screen().fixedFont());
    binder_.bind(model_.Text2.at(pane), title);
    ListBoxView& list = make<ListBoxView>(numbered("Output", pane), container);
    list.setFrameShape(QFrame::NoFrame);
    list.setFont(binder_.screen().fixedFont());
    list.bindTo(model_.Output.at(pane), binder_);
    addMenu(list, pane);
    title.standOver(list);
    QScrollBar& bar = make<QScrollBar>(numbered("HScroll", pane), container);
    bar.setOrientation(Qt::Horizontal);
    binder_.bind(model_.HScroll.at(pane), bar);
    list.scrollSidewaysBy(bar);
    return list;
}

void MainWindow::orderTabs() {
    // As the eye goes: what is opened, what is looked for, how it is shown, what is in it.
    const QStringList order =
        QString{
            "Text1 Command1 cmdReadCDDS Text8 cmdGetExtractInsertFolder incrementalSearchText "
            "incrementalSearchList cmdExtract cmdInsert chkGraphicDisplay "
            "cmdShow0 cmdShow1 cmdShow2 backViewportColor0 backViewportColor1 backViewportColor2 "
            "backViewportColor3 backViewportColor4 backViewportColor5 backViewportColor6 backViewportColor7 "
            "backViewportColor8 SplashText0 SplashText1 viewPortSize0 viewPortSize1 Text3 Text4 Output2 "
            "Text7 "
            "Output0 Text5 Output1 viewport texelStrip saveBarLook "
            "saveBarInsert saveBarIgnore saveBarPrevious saveBarNext"}
            .split(' ');
    QWidget* before = nullptr;
    for (const QString& name : order) {
        auto* next = findChild<QWidget*>(name);
        if (before != nullptr) setTabOrder(before, next);
        before = next;
    }
}

void MainWindow::buildWays() {
    auto* keys = new WindowKeys{*this};
    const auto press = [this, keys](const QKeySequence& key, const char* name) {
        auto* button = findChild<QPushButton*>(name);
        keys->add(key, [button] { button->click(); });
    };
    press(QKeySequence::Open, "Command1");
    press(Qt::Key_F5, "cmdReadCDDS");
    press(Qt::CTRL | Qt::Key_E, "cmdExtract");
    press(Qt::CTRL | Qt::Key_I, "cmdInsert");
    keys->add(Qt::Key_F1, [this] {
        if (help) help();
    });
    keys->add(Qt::CTRL | Qt::Key_K, [this] {
        if (safeCopies) safeCopies();
    });
    keys->add(Qt::CTRL | Qt::Key_B, [this] {
        if (several) several();
    });
    auto* search = findChild<QLineEdit*>("incrementalSearchText");
    keys->add(Qt::CTRL | Qt::Key_F, [search] {
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    new ArchiveDrop{*this, binder_.refresh(), [this](const std::string& path) { model_.openArchive(path); }};
}

void MainWindow::followWindow() {
    auto* binding = new Binding{this, [this] { pushWindow(); }};
    connections_.push_back(
        model_.window.changed.connect([this, binding] { binder_.refresh().later(*binding); }));
    connections_.push_back(model_.window.unloaded.connect([this] { end(); }));
    pushWindow();
}

void MainWindow::end() {
    hide();
    binder_.refresh().gate().shut();
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void MainWindow::pushWindow() {
    const Window& window = model_.window;
    const QtScreen& screen = binder_.screen();
    setWindowTitle(toQString(window.caption()));
    const auto inside = [&screen](double width, double height) {
        return QSize{screen.pixels(width - frameWidth), screen.pixels(height - frameHeight)};
    };
    setMinimumSize(inside(window.smallestWidth(), window.smallestHeight()).expandedTo({1, 1}));
    const QSize size = inside(window.box().width, window.box().height);
    if (size != this->size() && !isMaximized() && !isFullScreen()) resize(size);
}

void MainWindow::adoptSize() {
    const QtScreen& screen = binder_.screen();
    model_.window.setSize(screen.twips(width()) + frameWidth, screen.twips(height()) + frameHeight);
}

bool MainWindow::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    // A return from a message box or from another program is no activation: it would show the texture anew.
    if (event->type() == QEvent::WindowActivate && !activated_) activate();
    if (event->type() == QEvent::WinIdChange)
        model_.window.setHandle(static_cast<std::uint32_t>(internalWinId()));
    if (event->type() == QEvent::WindowStateChange) model_.window.setMinimized(isMinimized());
    return handled;
}

void MainWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The first layout pass comes before the first activation even where the size never changed.
    if (!placed_) binder_.refresh().deliver([this] { model_.layOut(); });
    placed_ = true;
    // A window manager may show a window without making it the active one; it is to be complete all the same.
    QTimer::singleShot(activationPatience, this, [this] {
        if (!activated_) activate();
    });
}

void MainWindow::activate() {
    activated_ = true;
    binder_.refresh().deliver([this] { model_.activate(); });
    if (!ready) return;
    binder_.refresh().gate().whenQuiet(*this, [this] {
        if (ready) binder_.refresh().operate(*this, std::exchange(ready, {}));
    });
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    binder_.refresh().deliver([this] { adoptSize(); });
}

void MainWindow::appear() {
    const QPoint wanted = binder_.screen().pixels(model_.window.box()).topLeft();
    const QList<QRect> areas = freeAreas();
    fitInto(nearestArea(wanted, areas).size() - managersFrame);
    const QPoint place = startingPlace({wanted, size() + managersFrame}, areas);
    // A place that the user chose is kept even where it cannot be taken now.
    if (wanted.isNull())
        model_.window.moveTo(binder_.screen().twips(place.x()), binder_.screen().twips(place.y()));
    move(place);
    show();
}

void MainWindow::fitInto(const QSize& room) {
    const QtScreen& screen = binder_.screen();
    const Box& outer = model_.window.box();
    const double width = std::min(outer.width, screen.twips(room.width()) + frameWidth);
    const double height = std::min(outer.height, screen.twips(room.height()) + frameHeight);
    binder_.refresh().deliver([&] { model_.window.setSize(width, height); });
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    // The moves before the first activation are the window manager's; the model keeps the place that was
    // asked for until the user chooses another.
    if (!activated_ || moved_) return;
    moved_ = true;
    // A maximized window is told its place before its state.
    QTimer::singleShot(settlingTime, this, [this] { adoptPlace(); });
}

void MainWindow::adoptPlace() {
    const bool ordinary = !isMaximized() && !isFullScreen() && !isMinimized();
    if (!std::exchange(moved_, false) || !ordinary) return;
    const QtScreen& screen = binder_.screen();
    model_.window.moveTo(screen.twips(frameGeometry().left()), screen.twips(frameGeometry().top()));
}

// Dialogs that are open are given up first, innermost first, and an operation comes to its end: what runs
// further up the stack never finds the window gone.
void MainWindow::closeEvent(QCloseEvent* event) {
    Gate& gate = binder_.refresh().gate();
    if (model_.window.isUnloaded()) return;
    if (!gate.isIdle()) {
        event->ignore();
        if (std::exchange(closing_, true)) return; // one dialog at a time
        gate.whenQuiet(*this, [this, &gate] {
            closing_ = false;
            gate.dismissDialog();
            close();
        });
        return;
    }
    adoptPlace();
    binder_.refresh().deliver([this] { model_.queryUnload(); });
    event->accept();
}

} // namespace pelrath::desktop
