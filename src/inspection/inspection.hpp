#pragma once

#include "imaging/level_difference.hpp"
#include "imaging/long_work.hpp"
#include "inspection/insertion_check.hpp"
#include "inspection/inspection_controls.hpp"
#include "mainwindow/viewer/look.hpp"
#include "transfer/texture_extraction_insertion.hpp"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace pelrath::inspection {

struct InspectionServices {
    BusySign& busy;
    std::function<bool()> stopIsAsked; ///< the user wants it to be given up
};

/// The window "Check" over the texture dialog: what an insertion would do as that dialog's controls are, in
/// words and in three pictures, of which one zoom and one place are seen. Nothing is written.
class Inspection : public InspectionControls {
public:
    /// Looks when the dialog's button is pressed.
    Inspection(Session& session, TextureExtractionInsertion& dialog, InspectionServices services);

    Signal<> pictureChanged; ///< the pictures are others by now; those that were are gone
    Signal<> lookChanged;    ///< scale, place or what is pointed at

    /// Of the level that is chosen; none where nothing would be written.
    [[nodiscard]] const std::optional<std::array<LevelPicture, Panels>>& shown() const { return shown_; }
    /// Where the picture is in each panel: pixels of the screen, from the panel's top left corner.
    [[nodiscard]] Sheet sheet() const { return look_.sheets().front(); }
    /// The texel that the keyboard points at, alike.
    [[nodiscard]] std::optional<Sheet> marker() const { return look_.marker(); }

    /// A panel has so many pixels of the screen, of which `unit` are one of the layout.
    void setRoom(std::int32_t width, std::int32_t height, double unit);
    void zoomBy(int steps, Point about);
    void zoomBy(int steps) { zoomBy(steps, look_.middle()); }
    void actualSize();
    void fit();
    void panBy(double right, double down);
    void pointAt(Point pointer);
    void movePointed(std::int32_t right, std::int32_t down);
    /// To a smaller level when positive.
    void stepLevel(int by);

private:
    void check();
    void open(InsertionCheck check);
    void showLevel();
    void change(const std::function<void()>& act);
    void settleRoom();
    void describe();
    [[nodiscard]] const CheckedLevel* level() const;
    [[nodiscard]] std::string texelText() const;
    [[nodiscard]] std::string levelText() const;

    Session& session_;
    TextureExtractionInsertion& dialog_;
    InspectionServices services_;
    LongWork longWork_;
    InsertionCheck check_;
    Look look_;
    ViewRoom room_;
    std::optional<std::array<LevelPicture, Panels>> shown_;
    double mean_ = 0;
    int largest_ = 0;
    Connections connections_;
};

} // namespace pelrath::inspection
