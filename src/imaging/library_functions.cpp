#include "imaging/library_functions.hpp"

#include <IL/il.h>
#include <IL/ilu.h>
#include <IL/ilut.h>

namespace pelrath {

const LibraryFunctions& imageLibrary() {
    static constexpr LibraryFunctions functions{
        .ilInit = ::ilInit,
        .iluInit = ::iluInit,
        .ilutRenderer = ::ilutRenderer,
        .ilutEnable = ::ilutEnable,
        .ilShutDown = ::ilShutDown,
        .ilGetError = ::ilGetError,
        .ilGetInteger = ::ilGetInteger,
        .iluGetInteger = ::iluGetInteger,
        .ilutGetInteger = ::ilutGetInteger,
        .ilSetInteger = ::ilSetInteger,
        .ilEnable = ::ilEnable,
        .ilDisable = ::ilDisable,
        .ilGenImages = ::ilGenImages,
        .ilBindImage = ::ilBindImage,
        .ilCopyImage = ::ilCopyImage,
        .ilDeleteImages = ::ilDeleteImages,
        .ilTexImage = ::ilTexImage,
        .ilActiveMipmap = ::ilActiveMipmap,
        .ilGetData = ::ilGetData,
        .ilLoad = ::ilLoad,
        .ilSaveImage = ::ilSaveImage,
        .ilSave = ::ilSave,
        .ilConvertImage = ::ilConvertImage,
        .iluBuildMipmaps = ::iluBuildMipmaps,
        .iluImageParameter = ::iluImageParameter,
        .iluScale = ::iluScale,
    };
    return functions;
}

} // namespace pelrath
