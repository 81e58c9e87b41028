#include "mainwindow/texture_choice.hpp"

#include "archive/image_file_kind.hpp"
#include "mainwindow/main_controls.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <numeric>

namespace pelrath {

TextureChoice::TextureChoice(const Controls& controls, Session& session, TextureViewer& viewer,
                             TextureLook& look, MessageBoxes& boxes)
    : c_(controls), session_(session), viewer_(viewer), look_(look), boxes_(boxes),
      dds_(session.archive, session.archivePath, session.archiveFile),
      connection_(c_.Output[TexturePane].click.connect([this] { showSelectedTexture(); })) {}

void TextureChoice::showSelectedTexture() {
    c_.Label11.setVisible(false);
    c_.Label11.setCaption("");
    const auto texture = static_cast<std::int16_t>(c_.Output[TexturePane].selectedRow());
    session_.selectedTexture = texture;
    if (texture == -1) return;
    c_.incrementalSearchList.setSelected(texture,
                                         true); // its name in the search box completes to this very row
    session_.selectedBaseName = withoutExtension(session_.chosenTexture().name);
    highlightLevels(texture);
    if (!nativeImageKind(session_.chosenTexture())) {
        c_.Label11.setCaption("Invalid DXT Format");
        c_.Label11.setVisible(true);
        return;
    }
    if (session_.viewer.graphicDisplayOff == 0) stageAndShow(texture);
}

void TextureChoice::highlightLevels(std::int16_t texture) {
    const auto chosen = session_.archive.textures.begin() + texture;
    const int first = std::accumulate(session_.archive.textures.begin(), chosen, 0,
                                      [](int sum, const TextureRecord& t) { return sum + t.mipmapCount; });
    c_.Output[MipmapPane].selectOnly(first, chosen->mipmapCount);
}

void TextureChoice::stageAndShow(std::int16_t texture) {
    std::string path;
    try {
        path = session_.programFolder.pathFor("tmp.dds");
        dds_.writeDdsLevelFile(path, texture, 0, Durability::Scratch);
    } catch (const RuntimeError& error) {
        viewer_.showNothing(); // no other texture's picture under this one's name
        c_.Label11.setCaption("Texture not available !");
        c_.Label11.setVisible(true);
        const std::string& name = session_.chosenTexture().name;
        boxes_.exclamation("The texture \"" + visibleText(name) +
                               "\" cannot be shown: " + error.description() + ".",
                           "Pelrath - Texture not available");
        return;
    }
    if (viewer_.showTexture(path, "This is the texture " + dds_.describe(texture) + "."))
        look_.begin(texture);
}

} // namespace pelrath
