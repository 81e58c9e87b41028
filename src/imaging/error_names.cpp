#include "imaging/error_names.hpp"

#include <array>

namespace pelrath {

namespace {

struct NamedCode {
    std::int32_t code;
    std::string_view name;
};

constexpr std::array namedCodes{
    NamedCode{0x0000, "IL_NO_ERROR"},
    NamedCode{0x0501, "IL_INVALID_ENUM "},
    NamedCode{0x0502, "IL_OUT_OF_MEMORY "},
    NamedCode{0x0503, "IL_FORMAT_NOT_SUPPORTED "},
    NamedCode{0x0504, "IL_INTERNAL_ERROR "},
    NamedCode{0x0505, "IL_INVALID_VALUE "},
    NamedCode{0x0506, "IL_ILLEGAL_OPERATION "},
    NamedCode{0x0507, "IL_ILLEGAL_FILE_VALUE "},
    NamedCode{0x0508, "IL_INVALID_FILE_HEADER "},
    NamedCode{0x0509, "IL_INVALID_PARAM "},
    NamedCode{0x050A, "IL_COULD_NOT_OPEN_FILE "},
    NamedCode{0x050B, "IL_INVALID_EXTENSION "},
    NamedCode{0x050C, "IL_FILE_ALREADY_EXISTS "},
    NamedCode{0x050D, "IL_OUT_FORMAT_SAME "},
    NamedCode{0x050E, "IL_STACK_OVERFLOW "},
    NamedCode{0x050F, "IL_STACK_UNDERFLOW "},
    NamedCode{0x0510, "IL_INVALID_CONVERSION "},
    NamedCode{0x0511, "IL_BAD_DIMENSIONS "},
    NamedCode{0x0512, "IL_FILE_READ_ERROR "},
    NamedCode{0x05E1, "IL_LIB_GIF_ERROR "},
    NamedCode{0x05E2, "IL_LIB_JPEG_ERROR "},
    NamedCode{0x05E3, "IL_LIB_PNG_ERROR "},
    NamedCode{0x05E4, "IL_LIB_TIFF_ERROR "},
    NamedCode{0x05E5, "IL_LIB_MNG_ERROR "},
    NamedCode{0x05FF, "IL_UNKNOWN_ERROR "},
};

} // namespace

std::string getErrorTypeName(std::int32_t code) {
    for (const NamedCode& row : namedCodes) {
        if (row.code == code) return std::string{row.name};
    }
    return "Error Type not found !";
}

std::string loadAdvice(std::int32_t code, std::string_view remedy) {
    switch (code) {
    case 0x0502:
        return "needs more memory than there is; close other programs or make the picture smaller";
    case 0x0503:
        return "is of a form that cannot be read; save it plainly, with 24 or 32 bits a pixel (a DDS file: as "
               "DXT1 or DXT5)";
    case 0x0508:
        return std::string{"is not of the kind that its extension says, or is damaged; "}.append(remedy);
    case 0x0511:
        return "has sides that cannot be; possible are 1 to 16384 pixels, and 134217728 pixels in all";
    case 0x0512:
        return std::string{"ends too early; "}.append(remedy);
    default:
        return std::string{"is damaged or cannot be read; "}.append(remedy);
    }
}

std::string libraryFailureText(std::string_view prefix, std::int32_t code) {
    return std::string{prefix} + std::to_string(code) + " -> " + getErrorTypeName(code);
}

} // namespace pelrath
