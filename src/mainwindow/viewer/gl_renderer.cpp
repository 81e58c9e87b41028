#include "mainwindow/viewer/gl_renderer.hpp"

#include "mainwindow/viewer/dds_picture.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <epoxy/gl.h>

namespace pelrath {

namespace {

// corners: x, y in back-buffer pixels from the top left. stored: the first row comes first, as in textures.
constexpr const char* vertexShader = R"(
uniform vec2 corners[4];
uniform vec2 backSize;
uniform bool stored;
void main() {
    vec2 place = corners[gl_VertexID] / backSize;
    float down = place.y * 2.0 - 1.0;
    gl_Position = vec4(place.x * 2.0 - 1.0, stored ? down : -down, 0.0, 1.0);
}
)";

// One for each kind, as software renderers compute what is behind a condition whether it holds or not.
// NEAREST: the texel under the pixel's centre. The small shift keeps a centre that lies exactly between two
// texels on the same side whatever the rounding of the division; centres otherwise lie at least 1/1024 texel
// away. AVERAGED: all texels under the pixel, each by its share; the clear ones of DXT1 have no colour.
constexpr const char* fragmentShader = R"(
uniform sampler2D picture;
uniform vec2 backSize;
uniform vec2 origin;
uniform vec2 extent;
uniform int shown; // Channel
uniform bool cutOut;
uniform int square;
uniform bool stored;
out vec4 color;

#ifdef NEAREST
vec4 seen(vec2 pixel, ivec2 size) {
    ivec2 texel = ivec2(floor((pixel - origin) * vec2(size) / extent + 1.0 / 4096.0));
    return texelFetch(picture, clamp(texel, ivec2(0), size - 1), 0);
}
#endif

#ifdef AVERAGED
vec4 seen(vec2 pixel, ivec2 size) {
    vec2 ratio = vec2(size) / extent;
    vec2 from = clamp((pixel - 0.5 - origin) * ratio, vec2(0.0), vec2(size));
    vec2 to = clamp((pixel + 0.5 - origin) * ratio, vec2(0.0), vec2(size));
    vec4 sum = vec4(0.0);
    float coloured = 0.0;
    float whole = 0.0;
    for (int y = int(from.y); y < to.y; ++y) {
        float down = min(to.y, y + 1.0) - max(from.y, y);
        for (int x = int(from.x); x < to.x; ++x) {
            float share = down * (min(to.x, x + 1.0) - max(from.x, x));
            vec4 texel = texelFetch(picture, ivec2(x, y), 0);
            float visible = cutOut && texel.a == 0.0 ? 0.0 : share;
            sum += vec4(texel.rgb * visible, texel.a * share);
            coloured += visible;
            whole += share;
        }
    }
    return vec4(sum.rgb / max(coloured, 1e-9), sum.a / max(whole, 1e-9));
}
#endif

void main() {
    vec2 pixel = vec2(gl_FragCoord.x, stored ? gl_FragCoord.y : backSize.y - gl_FragCoord.y);
#ifdef GROUND
    ivec2 field = ivec2(pixel) / square;
    color = vec4(vec3((field.x + field.y) % 2 == 0 ? 0.6 : 0.4), 1.0);
#else
    color = seen(pixel, textureSize(picture, 0));
    if (shown == 5) color.rgb *= color.a;
    else if (shown > 0) color = vec4(vec3(color[shown - 1]), 1.0);
#endif
}
)";

DeviceFailure failureOf(GLenum error) {
    switch (error) {
    case GL_OUT_OF_MEMORY:
        return DeviceFailure::OutOfMemory;
    case GL_CONTEXT_LOST:
        return DeviceFailure::DeviceLost;
    default:
        return DeviceFailure::InvalidCall;
    }
}

void forgetErrors() {
    for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i) {
    }
}

void check(const char* what) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR) return;
    forgetErrors();
    throw deviceError(failureOf(error),
                      std::string{"OpenGL refused to "} + what + " (code " + std::to_string(error) + ").");
}

GLuint compile(GLenum stage, const char* kind, const char* source) {
    const GLuint shader = glCreateShader(stage);
    const std::array<const char*, 4> parts{"#version 330 core\n#define ", kind, "\n", source};
    glShaderSource(shader, parts.size(), parts.data(), nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled == GL_TRUE) return shader;
    std::array<char, 512> reason{};
    glGetShaderInfoLog(shader, reason.size(), nullptr, reason.data());
    glDeleteShader(shader);
    throw deviceError(DeviceFailure::NotAvailable,
                      std::string{"A shader does not compile: "} + reason.data());
}

float channel(std::uint32_t argb, unsigned shift) {
    return static_cast<float>((argb >> shift) & 0xFFU) / 255.0F;
}

std::uint32_t largestSide() {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    return static_cast<std::uint32_t>(std::max(largest, 1));
}

void fillTexture(const LevelImage& image) {
    if (image.format == PixelFormat::Rgba) {
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, image.width, image.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     image.bytes.data());
        return;
    }
    const bool dxt1 = image.format == PixelFormat::Dxt1;
    glCompressedTexImage2D(
        GL_TEXTURE_2D, 0, dxt1 ? GL_COMPRESSED_RGBA_S3TC_DXT1_EXT : GL_COMPRESSED_RGBA_S3TC_DXT5_EXT,
        image.width, image.height, 0, static_cast<GLsizei>(image.bytes.size()), image.bytes.data());
}

GLuint makeTexture(const LevelImage& image) {
    GLuint made = 0;
    glGenTextures(1, &made);
    glBindTexture(GL_TEXTURE_2D, made);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    fillTexture(image);
    try {
        check("load the texture");
    } catch (const RuntimeError&) {
        glDeleteTextures(1, &made);
        throw;
    }
    return made;
}

bool isReduced(const Sheet& sheet, std::int32_t width, std::int32_t height) {
    return sheet.width < width || sheet.height < height;
}

// Whose pixels those are that end where a sheet ends is each driver's choice, but two tiles share none.
Sheet inWholePixels(Sheet sheet) {
    sheet.width = std::ceil(sheet.width - 0.5);
    sheet.height = std::ceil(sheet.height - 0.5);
    return sheet;
}

void setBlend(Blend blend) {
    switch (blend) {
    case Blend::None:
        glDisable(GL_BLEND);
        return;
    case Blend::Mask:
        glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        break;
    case Blend::InverseBoth:
        glBlendFunc(GL_ONE_MINUS_SRC_ALPHA, GL_SRC_ALPHA);
        break;
    }
    glEnable(GL_BLEND);
}

} // namespace

GlRenderer::GlRenderer(std::unique_ptr<GlContext> context, Sides sides)
    : context_(std::move(context)), width_(sides.width), height_(sides.height) {
    context_->makeCurrent();
    if (epoxy_gl_version() < 33)
        throw deviceError(DeviceFailure::NotAvailable, "The graphics driver has no OpenGL 3.3.");
}

// From the first line on there is a renderer: what fails here leaves none of its objects behind.
GlRenderer::GlRenderer(std::unique_ptr<GlContext> context, std::int32_t width, std::int32_t height)
    : GlRenderer(std::move(context), Sides{width, height}) {
    forgetErrors();
    makeBackBuffer();
    nearest_ = makeProgram("NEAREST");
    averaged_ = makeProgram("AVERAGED");
    ground_ = makeProgram("GROUND");
    glGenVertexArrays(1, &vertexArray_);
    glGenFramebuffers(1, &reduceBuffer_);
    check("make the renderer's objects");
}

GlRenderer::~GlRenderer() {
    try {
        context_->makeCurrent();
    } catch (const RuntimeError&) {
        return; // the objects went with their context
    }
    forgetImages();
    for (const Program* program : {&nearest_, &averaged_, &ground_}) {
        glDeleteProgram(program->id);
    }
    glDeleteVertexArrays(1, &vertexArray_);
    glDeleteFramebuffers(1, &backBuffer_);
    glDeleteFramebuffers(1, &reduceBuffer_);
    glDeleteTextures(1, &backTexture_);
}

void GlRenderer::makeBackBuffer() {
    glGenTextures(1, &backTexture_);
    sizeBackBuffer(1);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    glGenFramebuffers(1, &backBuffer_);
    glBindFramebuffer(GL_FRAMEBUFFER, backBuffer_);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, backTexture_, 0);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        throw deviceError(DeviceFailure::NotAvailable, "The back buffer cannot be drawn into.");
    }
}

void GlRenderer::sizeBackBuffer(double scale) {
    const auto width = static_cast<std::int32_t>(std::lround(width_ * scale));
    const auto height = static_cast<std::int32_t>(std::lround(height_ * scale));
    if (width == backWidth_ && height == backHeight_) return;
    backWidth_ = backHeight_ = 0; // unless it succeeds
    glBindTexture(GL_TEXTURE_2D, backTexture_);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    check("make the back buffer");
    backWidth_ = width;
    backHeight_ = height;
}

GlRenderer::Program GlRenderer::makeProgram(const char* kind) {
    Program program;
    program.id = glCreateProgram();
    for (const auto& [stage, source] :
         {std::pair{GL_VERTEX_SHADER, vertexShader}, {GL_FRAGMENT_SHADER, fragmentShader}}) {
        const GLuint shader = compile(static_cast<GLenum>(stage), kind, source);
        glAttachShader(program.id, shader);
        glDeleteShader(shader); // goes with the program
    }
    glLinkProgram(program.id);
    GLint linked = GL_FALSE;
    glGetProgramiv(program.id, GL_LINK_STATUS, &linked);
    if (linked != GL_TRUE) throw deviceError(DeviceFailure::NotAvailable, "The shaders do not link.");
    const auto place = [&program](const char* name) { return glGetUniformLocation(program.id, name); };
    program.corners = place("corners");
    program.backSize = place("backSize");
    program.origin = place("origin");
    program.extent = place("extent");
    program.shown = place("shown");
    program.cutOut = place("cutOut");
    program.square = place("square");
    program.stored = place("stored");
    return program;
}

void GlRenderer::loadTexture(const std::string& path) {
    context_->makeCurrent();
    forgetErrors();
    if (!epoxy_has_gl_extension("GL_EXT_texture_compression_s3tc")) {
        throw deviceError(DeviceFailure::NotAvailable,
                          "The graphics driver knows no DXT textures; another is needed to see them.");
    }
    const DdsPicture picture = readDdsPicture(path, largestSide());
    const GLuint loaded = makeTexture({picture.format, static_cast<std::int32_t>(picture.width),
                                       static_cast<std::int32_t>(picture.height), std::span{picture.blocks}});
    forgetImages();
    keep({}, {loaded, picture.format, static_cast<std::int32_t>(picture.width),
              static_cast<std::int32_t>(picture.height)});
    format_ = picture.format;
}

void GlRenderer::putImage(const ImageKey& key, const LevelImage& image) {
    context_->makeCurrent();
    forgetErrors();
    forgetReduced();
    keep(key, {makeTexture(image), image.format, image.width, image.height});
}

void GlRenderer::forgetImages() {
    forgetReduced();
    for (const auto& [key, image] : images_) {
        glDeleteTextures(1, &image.texture);
    }
    images_.clear();
}

void GlRenderer::keep(const ImageKey& key, const Image& image) {
    Image& kept = images_[key];
    glDeleteTextures(1, &kept.texture);
    kept = image;
}

void GlRenderer::drawFrame(const FramePicture& picture) {
    context_->makeCurrent();
    forgetErrors();
    sizeBackBuffer(picture.scale);
    const std::vector<Sheet> sheets = sheetsOf(picture);
    if (!picture.picks.averaged) forgetReduced();
    for (const Sheet& sheet : sheets) {
        if (picture.picks.averaged) reduce(sheet);
    }
    drawInto(backBuffer_, backWidth_, backHeight_);
    const std::uint32_t clear = picture.clearColor;
    glClearColor(channel(clear, 16), channel(clear, 8), channel(clear, 0), 1.0F); // never see-through
    glClear(GL_COLOR_BUFFER_BIT);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); // the viewport itself is never see-through
    if (picture.picks.chequered) drawGround(picture.scale);
    setBlend(picture.blend);
    for (const Sheet& sheet : sheets) {
        drawSheet(sheet, picture.sheets.empty() ? sheet : inWholePixels(sheet), picture.picks);
    }
    glDisable(GL_BLEND);
    if (picture.marker) drawMarker(*picture.marker);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    check("draw a frame");
    context_->present(readBackBuffer(), backWidth_, backHeight_);
}

std::vector<Sheet> GlRenderer::sheetsOf(const FramePicture& picture) const {
    if (!picture.sheets.empty()) return picture.sheets;
    // What the rounding of the sides leaves of the scale.
    const float across = static_cast<float>(backWidth_) / static_cast<float>(width_);
    const float down = static_cast<float>(backHeight_) / static_cast<float>(height_);
    return {{{}, 0, 0, picture.quad[3].x * across, picture.quad[3].y * down}};
}

void GlRenderer::use(const Program& program) const {
    glUseProgram(program.id);
    glUniform2f(program.backSize, static_cast<float>(targetWidth_), static_cast<float>(targetHeight_));
    glUniform1i(program.stored, target_ == backBuffer_ ? 0 : 1);
}

void GlRenderer::drawInto(std::uint32_t target, std::int32_t width, std::int32_t height) {
    target_ = target;
    targetWidth_ = width;
    targetHeight_ = height;
    glBindFramebuffer(GL_FRAMEBUFFER, target);
    glViewport(0, 0, width, height);
    glBindVertexArray(vertexArray_);
}

// Averaged once for its scale, so that moving it costs no more than moving any other; but not where far more
// of it than is seen would be.
void GlRenderer::reduce(const Sheet& sheet) {
    constexpr double screens = 4;
    const auto found = images_.find(sheet.image);
    if (found == images_.end() || !isReduced(sheet, found->second.width, found->second.height) ||
        sheet.width * sheet.height > screens * backWidth_ * backHeight_)
        return;
    Reduced& reduced = reduced_[sheet.image];
    if (reduced.width == sheet.width && reduced.height == sheet.height) return;
    glDeleteTextures(1, &reduced.image.texture);
    const auto width = static_cast<std::int32_t>(std::ceil(sheet.width));
    const auto height = static_cast<std::int32_t>(std::ceil(sheet.height));
    reduced = {{makeTexture({PixelFormat::Rgba, width, height, {}}), PixelFormat::Rgba, width, height},
               sheet.width,
               sheet.height};
    drawInto(reduceBuffer_, width, height);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, reduced.image.texture, 0);
    draw(averaged_, found->second, {{}, 0, 0, sheet.width, sheet.height}, sheet.width, sheet.height,
         Channel::All);
}

void GlRenderer::forgetReduced() {
    for (const auto& [key, reduced] : reduced_) {
        glDeleteTextures(1, &reduced.image.texture);
    }
    reduced_.clear();
}

void GlRenderer::drawGround(double scale) {
    constexpr double square = 8;
    use(ground_);
    glUniform1i(ground_.square, static_cast<GLint>(std::lround(std::max(square * scale, 1.0))));
    fill(ground_, 0, 0, backWidth_, backHeight_);
}

void GlRenderer::drawSheet(const Sheet& sheet, const Sheet& place, const Picks& picks) {
    const auto found = images_.find(sheet.image);
    if (found == images_.end() || sheet.width <= 0 || sheet.height <= 0) return;
    const Image& image = found->second;
    const auto reduced = reduced_.find(sheet.image);
    if (reduced != reduced_.end() && reduced->second.width == sheet.width) {
        const Image& small = reduced->second.image;
        draw(nearest_, small, place, small.width, small.height, picks.channel);
    } else {
        // Above 1:1 there is one texel under a pixel.
        const bool averaged = picks.averaged && isReduced(sheet, image.width, image.height);
        const Program& program = averaged ? averaged_ : nearest_;
        draw(program, image, place, sheet.width, sheet.height, picks.channel);
    }
}

void GlRenderer::draw(const Program& program, const Image& image, const Sheet& place, double width,
                      double height, Channel channel) {
    use(program);
    glBindTexture(GL_TEXTURE_2D, image.texture);
    glUniform2f(program.origin, static_cast<float>(place.left), static_cast<float>(place.top));
    glUniform2f(program.extent, static_cast<float>(width), static_cast<float>(height));
    glUniform1i(program.shown, static_cast<GLint>(channel));
    glUniform1i(program.cutOut, image.format == PixelFormat::Dxt1 ? 1 : 0);
    fill(program, place.left, place.top, place.left + place.width, place.top + place.height);
}

void GlRenderer::fill(const Program& program, double left, double top, double right, double bottom) const {
    const auto inside = [](double place, std::int32_t side) {
        return static_cast<float>(std::clamp(place, 0.0, static_cast<double>(side)));
    };
    const float x0 = inside(left, targetWidth_);
    const float x1 = inside(right, targetWidth_);
    const float y0 = inside(top, targetHeight_);
    const float y1 = inside(bottom, targetHeight_);
    const std::array<float, 8> corners{x0, y0, x1, y0, x0, y1, x1, y1};
    glUniform2fv(program.corners, 4, corners.data());
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
}

// White in black, to be seen on any picture.
void GlRenderer::drawMarker(const Sheet& place) const {
    const auto left = static_cast<GLint>(std::floor(place.left));
    const auto top = static_cast<GLint>(std::floor(place.top));
    const auto right = static_cast<GLint>(std::ceil(place.left + place.width));
    const auto bottom = static_cast<GLint>(std::ceil(place.top + place.height));
    glEnable(GL_SCISSOR_TEST);
    for (const GLint around : {1, 2}) {
        const float shade = around == 1 ? 1.0F : 0.0F;
        glClearColor(shade, shade, shade, 1);
        const GLint width = right - left + 2 * around;
        const GLint height = bottom - top + 2 * around;
        const GLint x = left - around;
        const GLint y = backHeight_ - bottom - around; // from below
        const std::array<std::array<GLint, 4>, 4> edges{{{x, y, width, 1},
                                                         {x, y + height - 1, width, 1},
                                                         {x, y, 1, height},
                                                         {x + width - 1, y, 1, height}}};
        for (const auto& edge : edges) {
            glScissor(edge[0], edge[1], edge[2], edge[3]);
            glClear(GL_COLOR_BUFFER_BIT);
        }
    }
    glDisable(GL_SCISSOR_TEST);
}

std::vector<std::byte> GlRenderer::readBackBuffer() {
    context_->makeCurrent();
    const std::size_t row = static_cast<std::size_t>(backWidth_) * 4;
    std::vector<std::byte> pixels(row * static_cast<std::size_t>(backHeight_));
    glBindFramebuffer(GL_FRAMEBUFFER, backBuffer_);
    glReadPixels(0, 0, backWidth_, backHeight_, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    check("read the back buffer");
    for (std::size_t top = 0, bottom = pixels.size() - row; top < bottom; top += row, bottom -= row) {
        std::swap_ranges(&pixels[top], &pixels[top] + row, &pixels[bottom]);
    }
    return pixels;
}

} // namespace pelrath
