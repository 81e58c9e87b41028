#pragma once

#include "desktop/refresh.hpp"
#include "inspection/inspection.hpp"

#include <QImage>
#include <QWidget>

#include <array>
#include <optional>
#include <vector>

namespace pelrath::desktop {

/// The three pictures of an inspection, side by side, with one scale and one place for all. What is shown
/// larger than it is has crisp texels, what is smaller is averaged.
class InspectionPictures : public QWidget {
public:
    explicit InspectionPictures(QWidget* parent);

    void showOf(inspection::Inspection& model, Refresh& refresh);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Each half as wide and as high as the one before, the first of them the model's own texels.
    using Halves = std::vector<QImage>;

    void adoptRoom();
    void takePictures();
    [[nodiscard]] const QImage& pictureFor(std::size_t panel, double scale);
    void paintPanel(QPainter& painter, std::size_t panel);
    void act(const std::function<void()>& change);
    /// The panel's place, in pixels of the screen.
    [[nodiscard]] QRect panelAt(std::size_t panel) const;
    [[nodiscard]] Point placeIn(const QPointF& place) const;
    [[nodiscard]] bool moveByKey(const QKeyEvent& event);

    inspection::Inspection* model_ = nullptr;
    Refresh* refresh_ = nullptr;
    std::array<Halves, inspection::Panels> pictures_;
    std::optional<QPointF> dragged_;
    double turned_ = 0; ///< steps of the wheel that are not done yet
    Connections connections_;
};

} // namespace pelrath::desktop
