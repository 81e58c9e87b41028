#include "desktop/several_window.hpp"

#include "desktop/elided_label.hpp"
#include "desktop/texture_table.hpp"
#include "desktop/told_view.hpp"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <initializer_list>

namespace pelrath::desktop {

namespace {

constexpr int betweenHalves = 12; // pixels

QHBoxLayout* row(std::initializer_list<QWidget*> views) {
    auto* line = new QHBoxLayout;
    for (QWidget* view : views) {
        line->addWidget(view);
    }
    return line;
}

} // namespace

// The widgets are made in the order in which Tab goes through them.
SeveralWindow::SeveralWindow(several::SeveralTextures& model, Binder& binder)
    : ModelDialog(model.window, binder), model_(model), binder_(binder) {
    setObjectName("SeveralTextures");
    auto* halves = new QHBoxLayout;
    halves->setSpacing(betweenHalves);
    halves->addLayout(textures(), 4);
    halves->addLayout(plan(), 5);
    auto* all = new QVBoxLayout{this};
    all->setSizeConstraint(QLayout::SetMinimumSize); // of whatever font
    all->addLayout(halves, 1);
    all->addLayout(buttons());
    follow();
}

QLabel& SeveralWindow::label(Label& model, const QString& name, QChar mnemonic) {
    QLabel& view = make<QLabel>(name);
    view.setTextFormat(Qt::PlainText);
    binder_.bind(model, view, mnemonic);
    return view;
}

QPushButton& SeveralWindow::button(CommandButton& model, const QString& name, QChar mnemonic) {
    QPushButton& view = make<QPushButton>(name);
    view.setAutoDefault(false);
    binder_.bind(model, view, mnemonic);
    return view;
}

QLineEdit& SeveralWindow::box(TextBox& model, const QString& name) {
    QLineEdit& view = make<QLineEdit>(name);
    binder_.bind(model, view);
    return view;
}

QCheckBox& SeveralWindow::check(CheckBox& model, const QString& name, QChar mnemonic) {
    QCheckBox& view = make<QCheckBox>(name);
    binder_.bind(model, view, mnemonic);
    return view;
}

QBoxLayout* SeveralWindow::textures() {
    QLabel& caption = label(model_.filterLabel, "filterLabel", 'F');
    filter_ = &box(model_.filter, "filter");
    filter_->setPlaceholderText("part of a name; * and ? stand for others");
    filter_->setClearButtonEnabled(true);
    filter_->findChild<QToolButton*>()->setAccessibleName("Clear the filter");
    caption.setBuddy(filter_);
    table_ = &make<TextureTable>("textures");
    table_->bindTo(model_.textures, binder_);
    QHBoxLayout* below = row({&label(model_.marks, "marks")});
    below->addStretch(1);
    below->addWidget(&button(model_.all, "all", 'A'));
    below->addWidget(&button(model_.none, "none", 'N'));
    auto* half = new QVBoxLayout;
    half->addLayout(row({&caption, filter_}));
    half->addWidget(table_, 1);
    half->addLayout(below);
    return half;
}

QGridLayout* SeveralWindow::choices() {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    const auto options = [this](auto& group, const char* name, std::initializer_list<char16_t> mnemonics) {
        auto* buttons = new QButtonGroup{this};
        auto* line = new QHBoxLayout;
        std::size_t i = 0;
        for (const char16_t mnemonic : mnemonics) {
            QRadioButton& view = make<QRadioButton>(name + QString::number(i));
            binder_.bind(group[i++], view, *buttons, mnemonic);
            line->addWidget(&view);
        }
        return line;
    };
    const auto put = [grid](QLabel& caption, QHBoxLayout* line, bool stretched = true) {
        const int at = grid->rowCount();
        if (stretched) line->addStretch(1);
        grid->addWidget(&caption, at, 0);
        grid->addLayout(line, at, 1);
    };
    QLabel& direction = label(model_.directionLabel, "directionLabel");
    put(direction, options(model_.direction, "direction", {u'E', u'I'}));
    QLabel& kind = label(model_.kindLabel, "kindLabel");
    put(kind, options(model_.kind, "kind", {u'D', u'B'}));

    QLabel& levels = label(model_.levelsLabel, "levelsLabel");
    QHBoxLayout* ofLevels = options(model_.levels, "levels", {u'L', u'h', u'o'});
    ofLevels->addWidget(&check(model_.create, "create", 'C'));
    QLabel& with = label(model_.scaleFilterLabel, "scaleFilterLabel", 'w');
    QComboBox& filter = make<QComboBox>("scaleFilter");
    binder_.bind(model_.scaleFilter, filter);
    filter.view()->setAccessibleName(filter.accessibleName());
    with.setBuddy(&filter);
    ofLevels->addWidget(&with);
    ofLevels->addWidget(&filter);
    put(levels, ofLevels);

    QLabel& folder = label(model_.folderLabel, "folderLabel", 'r');
    QLineEdit& path = box(model_.folder, "folder");
    folder.setBuddy(&path);
    QPushButton& browse = button(model_.chooseFolder, "chooseFolder");
    browse.setToolTip("Choose the folder of the files");
    put(folder, row({&path, &browse}), false);

    QCheckBox& overwrite = check(model_.overwrite, "overwrite", 'v');
    QCheckBox& safeCopy = check(model_.safeCopy, "safeCopy", 'y');
    QLineEdit& copies = box(model_.safeCopyFolder, "safeCopyFolder");
    QPushButton& browseCopies = button(model_.chooseSafeCopyFolder, "chooseSafeCopyFolder");
    browseCopies.setToolTip("Choose the folder of the safe copy");
    const int last = grid->rowCount();
    auto* ofOptions = row({&overwrite, &safeCopy, &copies, &browseCopies});
    ofOptions->setStretchFactor(&copies, 1);
    grid->addLayout(ofOptions, last, 0, 1, 2);
    grid->setRowMinimumHeight(last, copies.sizeHint().height());
    grid->setRowMinimumHeight(last - 2, filter.sizeHint().height());
    grid->addWidget(&check(model_.remember, "remember", 'm'), last + 1, 0, 1, 2);
    for (QPushButton* small : {&browse, &browseCopies}) {
        small->setFixedWidth(small->fontMetrics().horizontalAdvance("......") + 12);
    }
    return grid;
}

QBoxLayout* SeveralWindow::plan() {
    auto* half = new QVBoxLayout;
    half->addLayout(choices());
    QLabel& caption = label(model_.toldLabel, "toldLabel", 'P');
    ElidedLabel& summary = make<ElidedLabel>("summary");
    binder_.bind(model_.summary, summary);
    ToldView& told = make<ToldView>("told");
    told.bindTo(model_.told, binder_);
    caption.setBuddy(&told);
    auto* above = row({&caption, &summary});
    above->setStretchFactor(&summary, 1);
    half->addLayout(above);
    half->addWidget(&told, 1);
    return half;
}

void SeveralWindow::addProgress(QBoxLayout& line) {
    ElidedLabel& text = make<ElidedLabel>("progressText");
    binder_.bind(model_.progressText, text);
    QProgressBar& bar = make<QProgressBar>("progress");
    binder_.attach(model_.progress, bar, [this, &bar] {
        bar.setRange(0, static_cast<int>(model_.progress.total()));
        bar.setValue(static_cast<int>(model_.progress.done()));
    });
    line.addWidget(&text, 2);
    line.addWidget(&bar, 1);
}

QBoxLayout* SeveralWindow::buttons() {
    QPushButton& run = button(model_.run, "run", 't');
    run.setDefault(true);
    auto& stop = make<QPushButton>("stop");
    stop.setAutoDefault(false);
    stop.setText("&Stop");
    binder_.attach(model_.stop, stop, [] {});
    binder_.refresh().gate().stopsBy(stop);
    auto* line = new QHBoxLayout;
    addProgress(*line);
    line->addStretch();
    line->addWidget(&run);
    line->addWidget(&stop);
    line->addWidget(&button(model_.saveReport, "saveReport", 'S'));
    line->addWidget(&button(model_.backToPlan, "backToPlan", 'k'));
    line->addWidget(&button(model_.close, "close"));
    return line;
}

void SeveralWindow::follow() {
    auto* clock = new QTimer{this};
    clock->setSingleShot(true);
    connections_.push_back(model_.rest.changed.connect([this, clock] {
        if (model_.rest.running()) clock->start(model_.rest.interval());
        if (!model_.rest.running()) clock->stop();
    }));
    connect(clock, &QTimer::timeout, this, [this, clock] {
        if (binder_.refresh().gate().admits(*this)) {
            binder_.refresh().deliver([this] { model_.rest.tick.emit(); });
        } else {
            clock->start(model_.rest.interval());
        }
    });
}

// The action would come as a surprise there.
void SeveralWindow::keyPressEvent(QKeyEvent* event) {
    const bool leads =
        event->key() == Qt::Key_Down || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (leads && filter_->hasFocus()) {
        table_->setFocus(Qt::TabFocusReason);
    } else {
        ModelDialog::keyPressEvent(event);
    }
}

} // namespace pelrath::desktop
