#include "mainwindow/viewer/gl_renderer.hpp"

#include "mainwindow/viewer/dds_file.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <epoxy/gl.h>

namespace pelrath {

namespace {

// corners: x, y in back-buffer pixels from the top left.
constexpr const char* vertexShader = R"(#version 330 core
uniform vec2 corners[4];
uniform vec2 backSize;
void main() {
    vec2 place = corners[gl_VertexID] / backSize;
    gl_Position = vec4(place.x * 2.0 - 1.0, 1.0 - place.y * 2.0, 0.0, 1.0);
}
)";

// The texel under the pixel's centre. The small shift keeps a centre that lies exactly between two texels
// on the same side whatever the rounding of the division; centres otherwise lie at least 1/1024 texel away.
constexpr const char* fragmentShader = R"(#version 330 core
uniform sampler2D picture;
uniform vec2 backSize;
uniform vec2 quadSize;
out vec4 color;
void main() {
    vec2 pixel = vec2(gl_FragCoord.x, backSize.y - gl_FragCoord.y);
    ivec2 size = textureSize(picture, 0);
    ivec2 texel = ivec2(floor(pixel * vec2(size) / quadSize + 1.0 / 4096.0));
    color = texelFetch(picture, clamp(texel, ivec2(0), size - 1), 0);
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

GLuint compile(GLenum kind, const char* source) {
    const GLuint shader = glCreateShader(kind);
    glShaderSource(shader, 1, &source, nullptr);
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
    makeProgram();
    glGenVertexArrays(1, &vertexArray_);
    check("make the renderer's objects");
}

GlRenderer::~GlRenderer() {
    try {
        context_->makeCurrent();
    } catch (const RuntimeError&) {
        return; // the objects went with their context
    }
    glDeleteTextures(1, &texture_);
    glDeleteProgram(program_);
    glDeleteVertexArrays(1, &vertexArray_);
    glDeleteFramebuffers(1, &backBuffer_);
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

void GlRenderer::makeProgram() {
    program_ = glCreateProgram();
    for (const auto& [kind, source] :
         {std::pair{GL_VERTEX_SHADER, vertexShader}, {GL_FRAGMENT_SHADER, fragmentShader}}) {
        const GLuint shader = compile(static_cast<GLenum>(kind), source);
        glAttachShader(program_, shader);
        glDeleteShader(shader); // goes with the program
    }
    glLinkProgram(program_);
    GLint linked = GL_FALSE;
    glGetProgramiv(program_, GL_LINK_STATUS, &linked);
    if (linked != GL_TRUE) throw deviceError(DeviceFailure::NotAvailable, "The shaders do not link.");
    cornersPlace_ = glGetUniformLocation(program_, "corners");
    backSizePlace_ = glGetUniformLocation(program_, "backSize");
    quadSizePlace_ = glGetUniformLocation(program_, "quadSize");
}

void GlRenderer::loadTexture(const std::string& path) {
    context_->makeCurrent();
    forgetErrors();
    if (!epoxy_has_gl_extension("GL_EXT_texture_compression_s3tc")) {
        throw deviceError(DeviceFailure::NotAvailable,
                          "The graphics driver knows no DXT textures; another is needed to see them.");
    }
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    const DdsPicture picture = readDdsPicture(path, static_cast<std::uint32_t>(std::max(largest, 1)));
    GLuint loaded = 0;
    glGenTextures(1, &loaded);
    glBindTexture(GL_TEXTURE_2D, loaded);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    const bool dxt1 = picture.format == PixelFormat::Dxt1;
    glCompressedTexImage2D(GL_TEXTURE_2D, 0,
                           dxt1 ? GL_COMPRESSED_RGBA_S3TC_DXT1_EXT : GL_COMPRESSED_RGBA_S3TC_DXT5_EXT,
                           static_cast<GLsizei>(picture.width), static_cast<GLsizei>(picture.height), 0,
                           static_cast<GLsizei>(picture.blocks.size()), picture.blocks.data());
    try {
        check("load the texture");
    } catch (const RuntimeError&) {
        glDeleteTextures(1, &loaded);
        throw;
    }
    glDeleteTextures(1, &texture_);
    texture_ = loaded;
    format_ = picture.format;
}

void GlRenderer::drawFrame(const FramePicture& picture) {
    context_->makeCurrent();
    forgetErrors();
    sizeBackBuffer(picture.scale);
    glBindFramebuffer(GL_FRAMEBUFFER, backBuffer_);
    glViewport(0, 0, backWidth_, backHeight_);
    const std::uint32_t clear = picture.clearColor;
    glClearColor(channel(clear, 16), channel(clear, 8), channel(clear, 0), 1.0F); // never see-through
    glClear(GL_COLOR_BUFFER_BIT);
    if (texture_ != 0 && picture.quad[3].x > 0 && picture.quad[3].y > 0) {
        // What the rounding of the sides leaves of the scale.
        const float across = static_cast<float>(backWidth_) / static_cast<float>(width_);
        const float down = static_cast<float>(backHeight_) / static_cast<float>(height_);
        std::array<float, 8> corners{};
        for (std::size_t i = 0; i < picture.quad.size(); ++i) {
            corners[2 * i] = picture.quad[i].x * across;
            corners[2 * i + 1] = picture.quad[i].y * down;
        }
        glUseProgram(program_);
        glUniform2fv(cornersPlace_, 4, corners.data());
        glUniform2f(backSizePlace_, static_cast<float>(backWidth_), static_cast<float>(backHeight_));
        glUniform2f(quadSizePlace_, corners[6], corners[7]);
        glBindTexture(GL_TEXTURE_2D, texture_);
        glBindVertexArray(vertexArray_);
        setBlend(picture.blend);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); // the viewport itself is never see-through
        glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        glDisable(GL_BLEND);
    }
    check("draw a frame");
    context_->present(readBackBuffer(), backWidth_, backHeight_);
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
