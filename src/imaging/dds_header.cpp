#include "imaging/dds_header.hpp"

#include "imaging/refusal.hpp"

namespace pelrath {

BlockFormat blockFormatOf(const CheckedBytes& file) {
    if ((file.longAt(80) & fourCCFlag) == 0) refuse(Refusal::KindNotSupported);
    const std::uint32_t code = file.longAt(84);
    requireOneOf({dxt1Code, dxt5Code}, code, Refusal::KindNotSupported);
    return code == dxt1Code ? BlockFormat::Dxt1 : BlockFormat::Dxt5;
}

} // namespace pelrath
