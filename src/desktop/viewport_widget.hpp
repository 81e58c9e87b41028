#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

#include <cstdint>

namespace pelrath::desktop {

/// Shows the last picture that was drawn. A widget like any other: one that OpenGL paints would have it put
/// the whole window together anew whenever anything in it is painted.
class ViewportWidget : public QWidget {
public:
    explicit ViewportWidget(QWidget* parent);

    /// The next paint shows this picture, stretched over the whole widget; none: nothing.
    void show(QImage picture);
    using QWidget::show;

    /// True when the last picture was painted and another may follow, at most as often as the screen
    /// refreshes. An invisible viewport is always ready.
    [[nodiscard]] bool ready() const { return !waiting_; }
    /// How many there were.
    [[nodiscard]] std::uint64_t pictures() const { return pictures_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void becomeReady();

    QImage picture_;
    std::uint64_t pictures_ = 0;
    bool waiting_ = false;
    bool painted_ = true;
    QElapsedTimer clock_;
    qint64 due_ = 0; ///< when the next picture may come; milliseconds of the clock
};

} // namespace pelrath::desktop
