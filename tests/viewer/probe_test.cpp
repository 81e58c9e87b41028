#include "mainwindow/viewer/image_info.hpp"

#include "mainwindow/viewer/dds_picture.hpp"
#include "mainwindow/viewer/quad.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

TEST(Probe, ReadsTheHeadAndTellsWhatIsNotOne) {
    const TemporaryFolder folder;
    std::string whole = ddsFile("DXT5", 256, 128, "");
    whole[24] = 7;
    whole[28] = 9;
    // Name, content, what is read, and the complaint behind the path.
    const std::tuple<const char*, std::string, ImageInfo, std::string> cases[] = {
        {"magic only", "DDS ", {}, ""},
        {"lower case", "dds and more", {}, " is not in DDS format."},
        {".", "", {}, " not found."},
        {"whole", whole, {256, 128, 7, 9}, ""},
    };
    for (const auto& [name, content, info, complaint] : cases) {
        RecordingBoxes boxes;
        const std::string path = content.empty() ? folder.file(name) : folder.write(name, content);
        ImageInfo read{1, 2, 3, 4};
        EXPECT_EQ(getImageInfo(path, read, boxes), complaint.empty()) << name;
        EXPECT_EQ(read, info) << name;
        if (!complaint.empty())
            boxes.expect({"Image File " + path + complaint, "getImageInfo", BoxIcon::Critical});
    }
    const std::string other = folder.write("other", ddsFile("DXT3", 4, 4, std::string(16, 'x')));
    EXPECT_EQ(failureOf([&] { (void)readDdsPicture(other, 4); }).description(),
              "Its pixels are neither DXT1 nor DXT5, and no others can be shown.");
    for (const auto& [width, height] : {std::pair{8U, 4U}, {4U, 8U}}) {
        const std::string large = folder.write("large", ddsFile("DXT1", width, height, std::string(16, 'x')));
        EXPECT_NE(failureOf([&] { (void)readDdsPicture(large, 4); }).description().find("no side above 4"),
                  std::string::npos);
    }
}

TEST(Quad, KeepsItsShapeAndNeverGrows) {
    // Sides of the texture and of its quad, in a viewport of 512 x 256 for a buffer of the same size.
    const std::tuple<std::uint32_t, std::uint32_t, float, float> cases[] = {
        {256, 128, 256, 128}, {1024, 256, 512, 128}, {512, 1024, 128, 256}, {2048, 1024, 512, 256}};
    ViewerState state;
    state.viewPortWidth = state.referenceWidth = 512;
    state.viewPortHeight = state.referenceHeight = 256;
    for (const auto& [width, height, right, bottom] : cases) {
        const Quad quad = fitQuad(width, height, state);
        EXPECT_EQ(row(quad[3].x, quad[3].y), row(right, bottom));
    }
}

} // namespace
} // namespace pelrath::test
