#include "painters.hpp"

namespace pelrath::demo {

namespace {

constexpr int whole = 0;
constexpr unsigned sheet = 0x565C5E;

constexpr Livery temperate{Livery::Bands, Livery::Rings, 0x4F553C, 0x5F4D3A, 0x9FAAA6, 0x1F5E5C,
                           0xC9562E,      "KVR",         0xB9BFB2, 0x9AA79C, 0.5};
constexpr Livery desert{Livery::Bands, Livery::Halves, 0xB59A6B, 0x7B6143, 0x86A4B2, 0x8E2B24,
                        0x2C4A66,      "GAS",          0xE9E3D0, 0x8E2B24, 0.9};
constexpr Livery metal{Livery::Metal, Livery::Star, 0x9BA1A4, 0xD4D8D8, 0xAEB4B6, 0x27425E,
                       0xC23A2C,      "5HB",        0x1C1E20, 0xC9A02E, 0.2};
constexpr Livery splinter{Livery::Splinter, Livery::Diamond, 0x3D463E, 0x5F6B5A, 0x93A7AE, 0x1C1E20,
                          0xC9A52F,         "14N",           0xE0D8B2, 0xC9A52F, 0.4};
constexpr Livery winter{Livery::Whitewash, Livery::Star, 0x4E5A3D, 0x3A4434, 0x9CB8CA, 0x3A5A44,
                        0xE0B23A,          "27J",        0xA3261F, 0xA3261F, 0.7};
constexpr Livery naval{Livery::Plain, Livery::Star, 0x30455A, 0x3C536A, 0xB9BFBE, 0x15222E,
                       0xD8A73A,      "F18",        0xE2E1D7, 0xD8D6CA, 0.6};
constexpr Livery trainer{Livery::Plain, Livery::Rings, 0xD3A02B, 0xDDAE40, 0xC6962A, 0x1F3B63,
                         0xB5392C,      "T06",         0x1C1E20, 0x1F3B63, 0.3};

} // namespace

const std::vector<Texture>& catalogue() {
    static const std::vector<Texture> textures{
        {"fighter_skin_temperate.bmp", 2048, 2048, "DXT1", whole, skinSheet(temperate), sheet},
        {"fighter_skin_desert.bmp", 1024, 1024, "DXT5", 10, skinSheet(desert), 0x8A7A5C},
        {"fighter_skin_metal.bmp", 1024, 1024, "DXT1", whole, skinSheet(metal), sheet},
        {"fighter_skin_splinter.bmp", 1024, 1024, "DXT1", whole, skinSheet(splinter), sheet},
        {"Fighter_Skin_Winter.tga", 1024, 1024, "DXT1", 9, skinSheet(winter), sheet},
        {"Fighter_Skin_Naval.tga", 1024, 1024, "DXT5", whole, skinSheet(naval), 0x4A5A66},
        {"fighter_skin_trainer.bmp", 1024, 1024, "DXT1", whole, skinSheet(trainer), sheet},
        {"metal_riveted.bmp", 512, 512, "DXT1", whole, rivetedMetal},
        {"engine_radial.bmp", 512, 512, "DXT1", whole, radialEngine},
        {"propeller_disc.tga", 512, 512, "DXT5", whole, propellerDisc, 0x1F1F1F},
        {"cockpit_panel_main.bmp", 2048, 1024, "DXT1", whole, instrumentPanel},
        {"gauge_altimeter.bmp", 512, 512, "DXT1", whole, dial(altimeter)},
        {"gauge_airspeed.bmp", 512, 512, "DXT1", whole, dial(airspeed)},
        {"gauge_horizon.bmp", 512, 512, "DXT1", whole, horizon},
        {"gauge_clock.bmp", 256, 256, "DXT1", whole, dial(clockDial)},
        {"Gauge_Manifold.bmp", 256, 256, "DXT1", whole, dial(manifold)},
        {"  jauge_huile.bmp", 256, 256, "DXT1", 5, dial(oil)},
        {"gauge_climb", 256, 256, "DXT1", 3, dial(climb)},
        {"r\xE9servoir_\xFC"
         "bersicht.tga",
         256, 256, "DXT5", whole, dial(fuel)},

        {"tree_oak_summer.tga", 512, 512, "DXT1", whole, tree({0x56783A, 22, 26, 5}), 0x33481F},
        {"tree_oak_autumn.tga", 512, 512, "DXT5", whole, tree({0xC87A28, 18, 28, 8}), 0x8A5420},
        {"tree_oak_bare.tga", 256, 256, "DXT5", whole, tree({0, 0, 24, 3}), 0x3E3025},
        {"tree_young.tga", 256, 256, "DXT1", whole, tree({0x7E9A4A, 16, 18, 9}), 0x4A5E2C},
        {"land_grass.bmp", 512, 512, "DXT1", whole, ground({0x4A5E2C, 0x64783A, 0x8A9450, 0.125})},
        {"land_field_wheat.bmp", 512, 512, "DXT1", whole,
         ground({0x9A7C38, 0xC2A254, 0xE2CC82, 0.25, 1, 32})},
        {"land_field_ploughed.bmp", 512, 512, "DXT1", whole,
         ground({0x33261A, 0x59422C, 0x806448, 0.25, 1, 24})},
        {"land_farmland.bmp", 1024, 1024, "DXT1", whole, farmland},
        {"Land_Forest.v2.bmp", 512, 512, "DXT1", whole,
         ground({0x22361C, 0x36502A, 0x5A7440, 0.25, 1, 0, 26, 0.7})},
        {"land_water_deep.bmp", 512, 512, "DXT1", whole,
         ground({0x0E2C40, 0x1D4A60, 0x86B4C0, 0.125, 4, 0, 0, 0, 0.8})},
        {"land_sand.bmp", 256, 256, "DXT1", whole,
         ground({0xA8884E, 0xCBAE74, 0xE8D4A0, 0.25, 6, 0, 0, 0, 0.5})},
        {"land_rock.bmp", 512, 512, "DXT1", whole,
         ground({0x5C564C, 0x8A8274, 0xB4AC9C, 0.125, 1, 0, 6, 0.1})},
        {"land_snow.bmp", 256, 256, "DXT1", whole,
         ground({0xB9C8DC, 0xE6EDF5, 0xFFFFFF, 0.25, 2, 0, 0, 0, 1})},
        {"land_mud.bmp", 256, 256, "DXT1", whole,
         ground({0x2C2118, 0x59442F, 0x8A7458, 0.25, 1, 0, 0, 0, 1})},
        {"land_desert.bmp", 512, 512, "DXT1", whole,
         ground({0xA88A5C, 0xC4A878, 0xD8C094, 0.25, 1, 0, 9, 0.06})},
        {"land_cobbles.bmp", 256, 256, "DXT1", 6,
         ground({0x6A6862, 0x85827A, 0x9C988E, 0.25, 1, 0, 10, 0.35})},

        {"house_front_brick.bmp", 512, 512, "DXT1", whole, houseFront},
        {"wall_brick.bmp", 300, 200, "DXT1", whole,
         courses({0xB9B0A0, 0x7E3A2A, 0xB0644A, 0.25, 0.125, 0.016})},
        {"roof_tiles_red.bmp", 256, 256, "DXT1", whole,
         courses({0x3A1A12, 0x84402E, 0xBC6446, 0.125, 0.125, 0.006, 0.5})},
        {"planks_weathered.bmp", 256, 256, "DXT1", whole,
         courses({0x1E1610, 0x6A543E, 0x9A8264, 1, 0.125, 0.008})},
        {"roof_slate.bmp", 256, 256, "DXT1", whole,
         courses({0x1C2024, 0x424A52, 0x6C767E, 0.125, 0.125, 0.006, 0.2})},
        {"wall_blocks.bmp", 256, 256, "DXT1", whole,
         courses({0x6A6860, 0x9A978C, 0xB4B1A6, 0.5, 0.25, 0.01})},
        {"stripes_warning.bmp", 100, 60, "DXT1", whole, warningStripes},
        {"fence_chain_link.tga", 256, 256, "DXT5", whole, chainLink, 0x8A908E},

        {"fx_smoke_white.tga", 256, 256, "DXT5", whole, puffs({0x8A9094, 0xFAFAFA, 11}), 0xC0C2C2},
        {"fx_smoke_black.tga", 256, 256, "DXT5", whole, puffs({0x0C0B0A, 0x4A4642, 14}), 0x1A1816},
        {"fx_dust_cloud_over_runway_09.tga", 256, 128, "DXT5", whole,
         puffs({0x8A7048, 0xD8C296, 17, 0.8, 0, 0.3}), 0xA08A62},
        {"fx_explosion.tga", 512, 512, "DXT5", whole, puffs({0x241A16, 0x7A5A44, 23, 1, 0xF07018}), 0x6A3018},
        {"fx_fire.tga", 128, 256, "DXT5", 4, puffs({0x5A2A14, 0xC0642C, 41, 1, 0xF6A030}), 0x6A3018},
        {"fx_sun_glow.tga", 256, 256, "DXT5", whole, sunGlow, 0xFFEDC0},
        {"sky_cumulus.tga", 512, 256, "DXT5", whole, puffs({0x9AA6B6, 0xFFFFFF, 29, 1, 0, 0.2}), 0xD8DEE6},
        {"sky_storm.tga", 512, 512, "DXT5", whole, puffs({0x2E343C, 0x8E98A4, 37, 0.9}), 0x5A626C},

        {"calibration_color.tga", 1024, 1024, "DXT5", whole, colorCard, 0x808080},
        {"calibration_cutout.tga", 256, 256, "DXT1", whole, cutOutCard, 0x404040},
        {"calibration_odd.tga", 37, 53, "DXT5", whole, oddFrame},
        {"Alpha_Ramp_32.tga", 32, 8, "DXT5", whole, alphaRamp},
        {"alpha_ramp_raw.tga", 16, 16, "ARGB", 1, alphaRamp},
        {"tiny_chequer.bmp", 16, 16, "DXT1", whole, chequer},
        {"tiny_corners_12x6.bmp", 12, 6, "DXT1", whole, corners},
        {"tiny_corners_3x5.bmp", 3, 5, "DXT5", whole, corners},
        {"tiny_corners_2x2.bmp", 2, 2, "DXT1", whole, corners},
        {"tiny_dot.bmp", 1, 1, "DXT1", 1, corners},
    };
    return textures;
}

} // namespace pelrath::demo
