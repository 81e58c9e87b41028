#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace pelrath {

/// What is drawn of a texel: its colours as the view mode has them, one channel alone as grey, or the colours
/// with the ground where a texel of DXT1 is clear.
enum class Channel : std::uint8_t { All, Red, Green, Blue, Alpha, ClearTexels };

/// The texture as it is, as it was before the last insertion, or where these two differ.
enum class Version : std::uint8_t { Now, Before, Difference };

/// One level, the whole chain side by side, or one level two by two, as it meets itself at its seams.
enum class Arrangement : std::uint8_t { OneLevel, AllLevels, Tiled };

/// One picture of the texture's.
struct ImageKey {
    std::int16_t level = 0;
    Version version = Version::Now;
    auto operator<=>(const ImageKey&) const = default; // NOLINT(modernize-use-nullptr): a 0 that nobody wrote
};

/// Pixels of the screen, from the viewport's top left corner.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

/// A picture's place: pixels of the screen, from the viewport's top left corner.
struct Sheet {
    ImageKey image;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    bool operator==(const Sheet&) const = default;
};

struct TexelPlace {
    std::int16_t level = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const TexelPlace&) const = default;
};

struct LevelSides {
    std::int16_t level = 0;
    std::int32_t width = 1; ///< texels, at least 1
    std::int32_t height = 1;
    bool operator==(const LevelSides&) const = default;
};

/// Where a texture is looked at.
struct ViewRoom {
    std::int32_t width = 512; ///< pixels of the screen
    std::int32_t height = 512;
    double unit = 1;  ///< pixels of the screen to one of the layout: nothing is fitted larger than that
    double given = 1; ///< pixels of the screen to a texel of the first level where that alone is fitted
    bool operator==(const ViewRoom&) const = default;
};

/// What changes no place.
struct Picks {
    Channel channel = Channel::All;
    Version version = Version::Now;
    bool chequered = false; ///< the ground, in place of the background colour
    bool averaged = false;  ///< what is drawn smaller than 1:1, in place of every so manieth texel
    bool operator==(const Picks&) const = default;
};

/// What of a texture is looked at, and how. Places are kept to whole pixels, so that the edges of texels stay
/// crisp. Until something is zoomed or picked it says "as given".
class Look {
public:
    /// Everything as given, of a texture with these levels, the largest first; none: no texture.
    void begin(std::vector<LevelSides> levels);
    void setRoom(const ViewRoom& room);

    [[nodiscard]] bool hasTexture() const { return !levels_.empty(); }
    /// Nothing is zoomed or picked.
    [[nodiscard]] bool isGiven() const;

    Picks picks;

    /// The whole picture at the top left, no larger than it is.
    void fit() { zoom_.reset(); }
    [[nodiscard]] bool isFitted() const { return !zoom_; }
    /// To a scale in pixels to a texel; what lies at `about`, of whichever sheet, stays there as far as the
    /// picture's ends allow.
    void zoomTo(double scale, Point about);
    /// By so many steps, larger ones when positive, between 1:16 and 32:1: powers of two and the half between
    /// two of them. Nothing beyond the last.
    void zoomBy(int steps, Point about);
    void panBy(double right, double down);
    [[nodiscard]] Point middle() const { return {room_.width / 2.0, room_.height / 2.0}; }

    /// To another level, smaller ones when positive, which alone is shown then. What is zoomed goes on
    /// showing the same part of the texture in the middle.
    void stepLevel(int by);
    void arrange(Arrangement arrangement);
    [[nodiscard]] Arrangement arrangement() const { return arrangement_; }
    /// The one that is shown or tiled, or the first of all. There must be a texture.
    [[nodiscard]] const LevelSides& level() const { return levels_[shown_]; }
    [[nodiscard]] bool hasLevel(int by) const;

    /// Pixels of the screen to a texel. There must be a texture.
    [[nodiscard]] double scale() const { return zoom_ ? *zoom_ : fittedScale(); }
    /// None is thinner than a pixel.
    [[nodiscard]] std::vector<Sheet> sheets() const;

    /// The mouse is there.
    void pointAt(Point pointer);
    /// The keyboard's pointer goes so many texels to the right and down, from the mouse's or the middle of
    /// what is seen; the view follows it.
    void movePointed(std::int32_t right, std::int32_t down);
    [[nodiscard]] std::optional<TexelPlace> pointed() const;
    /// The keyboard's pointer.
    [[nodiscard]] std::optional<Sheet> marker() const;

private:
    /// A place of a sheet's, in parts of its sides.
    struct Grip {
        std::size_t sheet = 0;
        double right = 0;
        double down = 0;
    };
    /// What lies at a point; of the first sheet where that is beside all of them. There must be a texture.
    [[nodiscard]] Grip gripAt(Point point) const;
    /// Of what is zoomed.
    void bring(const Grip& grip, Point to);
    /// The keyboard's pointer to the same place in the level that is shown.
    void carryMark();
    [[nodiscard]] double fittedScale() const;
    /// At the viewport's top left corner.
    [[nodiscard]] std::vector<Sheet> laidOut(double scale) const;
    [[nodiscard]] std::vector<Sheet> chain(double scale) const;
    [[nodiscard]] const LevelSides* sidesOf(std::int16_t level) const;
    [[nodiscard]] std::optional<TexelPlace> texelAt(Point point) const;
    [[nodiscard]] std::optional<TexelPlace> texelInTheMiddle() const;
    [[nodiscard]] Sheet placeOf(const TexelPlace& texel) const;
    /// To whole pixels, and no end of a picture farther inside than it must be.
    void moveTo(Point origin);

    std::vector<LevelSides> levels_;
    ViewRoom room_;
    Arrangement arrangement_ = Arrangement::OneLevel;
    std::size_t shown_ = 0; ///< index into levels_
    std::optional<double> zoom_;
    Point origin_; ///< of what is zoomed
    std::optional<Point> pointer_;
    std::optional<TexelPlace> marked_;
};

} // namespace pelrath
