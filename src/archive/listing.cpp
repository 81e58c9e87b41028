#include "archive/listing.hpp"

#include "archive/number_text.hpp"
#include "platform/text.hpp"

#include <initializer_list>

namespace pelrath::listing {

const std::string_view headerTitle0C = " FileNb      Long1      Long2      Long3      Long4";
const std::string_view headerTitleCdds =
    "     Long1      Long2      Long3      Long4      Long5      Long6      Long7";
const std::string_view textureTitle0C =
    "Index  File Name                        Width Height   Type    NbMMap      Long1      Long2      Long3"
    "      Long4   MMapsAdr     Offset     AdrDec     AdrHex ";
const std::string_view textureTitleCdds =
    "Index  File Name                        Width Height   Type NbMMap       Addr     Offset AdrDescDec "
    "AdrDescHex      DxtL4      DxtL6      Dxtl7      Dxtl8      Dxtl9     Dxtl10      Long2      Long3"
    "      Long4      Long5      Long6      Long7      Long8 ";
const std::string_view mipmapTitle =
    "Index        Size      Width     Height     AdrDec     AdrHex  OffsetDec  OffsetHex     TrgDec"
    "     TrgHex       ";

namespace {

void addAll(NumberColumns& columns, std::initializer_list<std::int32_t> numbers) {
    for (const std::int32_t number : numbers) {
        columns.addDecimal(number);
    }
}

void appendColumns(std::string& line, std::initializer_list<std::int32_t> numbers) {
    NumberColumns columns;
    addAll(columns, numbers);
    line.append(columns.text());
}

// Index, name, size and type: the same in both layouts.
void beginTextureLine(std::string& line, std::int32_t index, std::string_view name, std::int32_t width,
                      std::int32_t height, const records::FourCC& type) {
    line.clear();
    appendDecimal(line, index + 1, 5, 2);
    appendPadded(line, name, nameWidth);
    appendDecimal(line, width, 5, 0);
    line.append(" x");
    appendDecimal(line, height, 5, 0);
    appendRightAligned(line, fieldText(type), 8, 0);
}

} // namespace

std::string headerLine(const records::Header0C& h) {
    std::string line = fileNumberText(h.textureCount);
    appendColumns(line, {h.long1, h.long2, h.long3, h.long4});
    return line;
}

std::string headerLine(const records::HeaderCdds& h) {
    std::string line;
    appendColumns(line, {h.long1, h.textureCount, h.long3, h.long4, h.long5, h.long6, h.long7});
    return line;
}

void textureLine(const PlacedTexture0C& texture, std::int32_t index, std::string_view name,
                 std::string& line) {
    const records::TextureEntry0C& e = texture.entry;
    beginTextureLine(line, index, name, e.width, e.height, e.fourCC);
    NumberColumns columns;
    addAll(columns, {e.mipmapCount, e.long1, e.long2, e.long3, e.long4, e.mipmapTableOffset,
                     texture.fieldPosition, texture.tablePosition});
    columns.addHexadecimal(texture.tablePosition);
    line.append(columns.text());
}

void textureLine(const PlacedTextureCdds& texture, std::int32_t index, std::string_view name,
                 std::string& line) {
    const records::TextureEntryCdds& e = texture.entry;
    const records::TextureDescriptor& d = texture.descriptor;
    beginTextureLine(line, index, name, d.width, d.height, d.fourCC);
    appendDecimal(line, d.mipmapCount, 7, 1);
    NumberColumns columns;
    addAll(columns, {e.descriptorOffset, texture.fieldPosition, texture.descriptorPosition});
    columns.addHexadecimal(texture.descriptorPosition);
    addAll(columns, {d.dxtL4, d.dxtL6, d.dxtL7, d.dxtL8, d.dxtL9, d.dxtL10, e.long2, e.long3, e.long4,
                     e.long5, e.long6, e.long7, e.long8});
    line.append(columns.text());
}

void mipmapLine(const PlacedMipmapEntry& mipmap, std::int32_t number, std::string& line) {
    const records::MipmapEntry& e = mipmap.entry;
    const std::int32_t target = mipmap.position + e.dataOffset;
    line.clear();
    appendDecimal(line, number, 5, 2);
    NumberColumns columns;
    addAll(columns, {e.dataSize, e.width, e.height});
    for (const std::int32_t place : {mipmap.position, e.dataOffset, target}) {
        columns.addDecimal(place);
        columns.addHexadecimal(place);
    }
    line.append(columns.text());
}

std::string_view nameListEntry(std::string_view name) {
    return trimBlanks(name); // the blanks that would pad it are among those that go
}

} // namespace pelrath::listing
