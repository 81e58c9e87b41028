#pragma once

#include <QElapsedTimer>
#include <QOpenGLWidget>

#include <cstdint>

namespace pelrath::desktop {

/// Shows a picture that another context, sharing its textures, has drawn.
class ViewportWidget : public QOpenGLWidget {
public:
    explicit ViewportWidget(QWidget* parent);
    ~ViewportWidget() override;

    /// The next paint shows this texture of width x height pixels on the whole widget; 0: nothing.
    void show(std::uint32_t texture, int width, int height);
    using QWidget::show;

    /// True when the last picture is on the screen and another may follow, at most as often as the screen
    /// refreshes. An invisible viewport is always ready.
    [[nodiscard]] bool ready() const { return !waiting_; }

protected:
    void initializeGL() override;
    void paintGL() override;
    void hideEvent(QHideEvent* event) override;

private:
    void becomeReady();

    std::uint32_t texture_ = 0;
    int width_ = 0;
    int height_ = 0;
    std::uint32_t source_ = 0; // a framebuffer around the texture
    bool waiting_ = false;
    bool swapped_ = true;
    QElapsedTimer sinceShown_;
};

} // namespace pelrath::desktop
