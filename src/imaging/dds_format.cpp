#include "imaging/dds_format.hpp"

#include "imaging/refusal.hpp"

namespace pelrath {

BlockFormat blockFormatOf(const DdsHeader& header) {
    if ((header.formatFlags & DdsHeader::FourCCGiven) == 0) refuse(Refusal::KindNotSupported);
    requireOneOf({dxt1Code, dxt5Code}, header.fourCC, Refusal::KindNotSupported);
    return header.fourCC == dxt1Code ? BlockFormat::Dxt1 : BlockFormat::Dxt5;
}

} // namespace pelrath
