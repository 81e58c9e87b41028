#include "catalogue.hpp"

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
constexpr Livery mottled{Livery::Mottle, Livery::Diamond, 0x4B5450, 0x98A3A0, 0xA9B7BB, 0x2A3440,
                         0xA8442E,       "12W",           0x1A1B1C, 0x2E5A46, 0.5};
constexpr Livery winter{Livery::Whitewash, Livery::Star, 0x4E5A3D, 0x3A4434, 0x9CB8CA, 0x3A5A44,
                        0xE0B23A,          "27J",        0xA3261F, 0xA3261F, 0.7};
constexpr Livery naval{Livery::Plain, Livery::Star, 0x30455A, 0x3C536A, 0xB9BFBE, 0x15222E,
                       0xD8A73A,      "F18",        0xE2E1D7, 0xD8D6CA, 0.6};
constexpr Livery night{Livery::Plain, Livery::Rings, 0x222426, 0x2C2F31, 0x1B1C1D, 0x3A3E46,
                       0x8E2F28,      "ZJN",         0x9A342B, 0x1B1C1D, 0.7};
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
        {"fighter_skin_night.bmp", 1024, 1024, "DXT1", 1, skinSheet(night), sheet},
        {"fighter_skin_trainer.bmp", 1024, 1024, "DXT1", whole, skinSheet(trainer), sheet},
        {"fuselage_mottled.bmp", 1024, 256, "DXT1", whole, fuselageSide(mottled), sheet},
        {"wing_upper_splinter.bmp", 1024, 256, "DXT1", whole, wingPair(splinter), sheet},
        {"metal_riveted.bmp", 512, 512, "DXT1", whole, rivetedMetal},
        {"engine_radial.bmp", 512, 512, "DXT1", whole, radialEngine},
        {"wheel_main.bmp", 256, 256, "DXT1", whole, wheel},
        {"drop_tank.bmp", 300, 200, "DXT1", whole, dropTank},
        {"propeller_disc.tga", 512, 512, "DXT5", whole, propellerDisc, 0x1F1F1F},
        {"damage_bullets.tga", 256, 256, "DXT5", whole, bulletHoles, 0x1E1A16},
        {"damage_wing_hole.tga", 512, 512, "DXT1", whole, tornPanel, 0x4F553C},
        {"nose_emblem_comet.tga", 512, 256, "DXT5", whole, emblem, 0x2A1D14},
        {"code_letters.tga", 640, 480, "DXT5", 1, letterSheet, 0xE6E3D4},
        {"shadow_fighter.tga", 128, 128, "DXT5", whole, shadow, 0x050505},
        {"cockpit_panel_main.bmp", 2048, 1024, "DXT1", whole, instrumentPanel},
        {"  panneau_gauche.bmp", 512, 256, "DXT1", whole, switchPanel},
        {"cockpit_placard", 256, 128, "DXT1", 3, placard},
        {"gauge_altimeter.bmp", 512, 512, "DXT1", whole, dial(altimeter)},
        {"gauge_airspeed.bmp", 512, 512, "DXT1", whole, dial(airspeed)},
        {"gauge_horizon.bmp", 512, 512, "DXT1", whole, horizon},
        {"gauge_compass.bmp", 512, 512, "DXT1", whole, compass},
        {"gauge_clock.bmp", 256, 256, "DXT1", whole, dial(clockDial)},
        {"Gauge_Manifold.bmp", 256, 256, "DXT1", whole, dial(manifold)},
        {"gauge_oil_temp.bmp", 256, 256, "DXT1", 5, dial(oil)},
        {"gauge_climb.bmp", 256, 256, "DXT1", whole, dial(climb)},
        {"r\xE9servoir_\xFC"
         "bersicht.tga",
         256, 256, "DXT5", whole, dial(fuel)},
        {"needle_long.tga", 32, 256, "DXT5", whole, needle, 0xE6E3D0},
        {"gunsight_reticle.tga", 512, 512, "DXT5", 1, reticle, 0xFFB347},
        {"canopy_glass.tga", 512, 512, "dxt5", whole, canopyGlass, 0xCFE2EE},
        {"map_coast_north.bmp", 1024, 768, "DXT1", whole, coastMap},

        {"tree_oak_summer.tga", 512, 512, "DXT1", whole, tree({0x56783A, 22, 26, 5}), 0x33481F},
        {"tree_oak_autumn.tga", 512, 512, "DXT5", whole, tree({0xC87A28, 18, 28, 8}), 0x8A5420},
        {"tree_oak_bare.tga", 256, 256, "DXT5", whole, tree({0, 0, 24, 3}), 0x3E3025},
        {"tree_pine.tga", 256, 512, "DXT1", whole, pine, 0x24382A},
        {"grass_tuft.tga", 256, 128, "DXT5", whole, grassTuft, 0x6A7438},
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

        {"city_blocks.bmp", 1024, 1024, "DXT1", whole, cityBlocks},
        {"runway_09L.bmp", 1024, 256, "DXT1", 8, runway},
        {"railway_track.bmp", 128, 512, "DXT1", whole, railway},
        {"hangar_doors.bmp", 1024, 512, "DXT1", whole, hangarDoors},
        {"tower_watch_office.bmp", 512, 512, "DXT1", whole, watchTower},
        {"house_front_brick.bmp", 512, 512, "DXT1", whole, houseFront},
        {"wall_brick.bmp", 256, 256, "DXT1", whole,
         courses({0xB9B0A0, 0x7E3A2A, 0xB0644A, 0.25, 0.125, 0.016})},
        {"roof_tiles_red.bmp", 256, 256, "DXT1", whole,
         courses({0x3A1A12, 0x84402E, 0xBC6446, 0.125, 0.125, 0.006, 0.5})},
        {"planks_weathered.bmp", 256, 256, "DXT1", whole,
         courses({0x1E1610, 0x6A543E, 0x9A8264, 1, 0.125, 0.008})},
        {"stripes_warning.bmp", 100, 60, "DXT1", whole, warningStripes},
        {"fence_chain_link.tga", 256, 256, "DXT5", whole, chainLink, 0x8A908E},
        {"ladder_pilot.tga", 37, 106, "DXT1", whole, ladder, 0xA08030},

        {"fx_smoke_white.tga", 256, 256, "DXT5", whole, puffs({0x8A9094, 0xFAFAFA, 11}), 0xC0C2C2},
        {"fx_smoke_black.tga", 256, 256, "DXT5", whole, puffs({0x0C0B0A, 0x4A4642, 14}), 0x1A1816},
        {"fx_dust_runway.tga", 256, 128, "DXT5", whole, puffs({0x8A7048, 0xD8C296, 17, 0.8, 0, 0.3}),
         0xA08A62},
        {"fx_explosion_large.tga", 512, 512, "DXT5", whole, puffs({0x241A16, 0x7A5A44, 23, 1, 0xF07018}),
         0x6A3018},
        {"fx_sun_glow.tga", 256, 256, "DXT5", whole, sunGlow, 0xFFEDC0},
        {"sky_cumulus.tga", 512, 256, "DXT5", whole, puffs({0x9AA6B6, 0xFFFFFF, 29, 1, 0, 0.2}), 0xD8DEE6},
        {"sky_cirrus.tga", 512, 512, "DXT5", whole, cirrus, 0xF3F6FA},
        {"decal_bomb_crater_large_mud1.tga", 256, 256, "DXT5", whole, crater, 0x3A2E22},

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
