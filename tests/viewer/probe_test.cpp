#include "mainwindow/viewer/dds_probe.hpp"

#include "mainwindow/viewer/dds_file.hpp"
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
}

} // namespace
} // namespace pelrath::test
