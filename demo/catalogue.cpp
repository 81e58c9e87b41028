#include "catalogue.hpp"

#include <string_view>
#include <utility>

#include "aircraft_parts.hpp"
#include "calibration.hpp"
#include "cockpit.hpp"
#include "effects.hpp"
#include "foliage.hpp"
#include "instruments.hpp"
#include "materials.hpp"
#include "mipmaps.hpp"
#include "skins.hpp"
#include "terrain.hpp"
#include "wires.hpp"

namespace demo {

namespace {

constexpr int whole = 0; // a chain down to 1 x 1

const Color opaque = rgb(0x000000);
const Color sheet = rgb(0x5B6062);

constexpr Color clear(std::uint32_t hex) { return rgb(hex, 0.0F); }

std::function<void(Canvas&)> skin(Skin kind) {
    return [kind](Canvas& canvas) { drawSkinSheet(canvas, kind); };
}

// Fine lines drawn at a small size would be too strong; the sheet is drawn larger and halved.
std::function<void(Canvas&)> reduced(Skin kind, int halvings) {
    return [kind, halvings](Canvas& canvas) {
        Canvas large(canvas.width() << halvings, canvas.height() << halvings, canvas.at(0, 0));
        drawSkinSheet(large, kind);
        large.setClip(nullptr);
        canvas = mipmapChain(std::move(large), halvings + 1).back();
    };
}

std::function<void(Canvas&)> fuselage(Skin kind) {
    return [kind](Canvas& canvas) { drawFuselageSheet(canvas, kind); };
}

std::function<void(Canvas&)> wing(Skin kind, bool upper) {
    return [kind, upper](Canvas& canvas) { drawWingSheet(canvas, kind, upper); };
}

std::function<void(Canvas&)> dial(Instrument kind) {
    return [kind](Canvas& canvas) { drawInstrument(canvas, kind); };
}

void append(std::vector<TextureRow>& rows, std::vector<TextureRow> more) {
    rows.insert(rows.end(), more.begin(), more.end());
}

std::vector<TextureRow> aircraftRows() {
    return {
        {"fighter_skin_temperate.bmp", "DXT1", 2048, 2048, whole, sheet, skin(Skin::Temperate)},
        {"fighter_skin_desert.bmp", "DXT5", 2048, 2048, 10, clear(0x8A7A5C), skin(Skin::Desert)},
        {"fighter_skin_metal.bmp", "DXT1", 2048, 2048, whole, sheet, skin(Skin::BareMetal)},
        {"fighter_skin_splinter.bmp", "DXT1", 1024, 1024, whole, sheet, skin(Skin::Splinter)},
        {"fighter_skin_mottled.bmp", "DXT1", 1024, 1024, whole, sheet, skin(Skin::Mottled)},
        {"Fighter_Skin_Winter.tga", "DXT1", 1024, 1024, 9, sheet, skin(Skin::Winter)},
        {"Fighter_Skin_Naval.tga", "DXT5", 1024, 1024, whole, clear(0x4A5A66), skin(Skin::Naval)},
        {"fighter_skin_night.bmp", "DXT1", 1024, 1024, 1, sheet, skin(Skin::Night)},
        {"fighter_skin_trainer.bmp", "DXT1", 1024, 1024, whole, sheet, skin(Skin::Trainer)},
        {"fighter_lod1_temperate.bmp", "DXT1", 512, 512, whole, sheet, reduced(Skin::Temperate, 1)},
        {"fighter_lod2_temperate.bmp", "DXT1", 128, 128, 6, sheet, reduced(Skin::Temperate, 3)},
        {"fuselage_mottled.bmp", "DXT1", 2048, 512, whole, sheet, fuselage(Skin::Mottled)},
        {"fuselage_desert.bmp", "DXT1", 1024, 256, 7, sheet, fuselage(Skin::Desert)},
        {"wing_upper_splinter.bmp", "DXT1", 1024, 256, whole, sheet, wing(Skin::Splinter, true)},
        {"wing_lower_splinter.bmp", "DXT1", 1024, 256, whole, sheet, wing(Skin::Splinter, false)},
        {"rudder_fabric.bmp", "DXT1", 256, 1024, whole, opaque, drawFabricRudder},
        {"cowling_left.bmp", "DXT1", 1024, 512, whole, opaque, drawCowling},
        {"exhaust_stacks.bmp", "DXT1", 512, 128, whole, opaque, drawExhaustStacks},
        {"engine_radial.bmp", "DXT1", 512, 512, whole, opaque, drawEngineFront},
        {"radiator_grille.bmp", "DXT1", 512, 512, 8, opaque, drawRadiatorGrille},
        {"metal_riveted.bmp", "DXT1", 512, 512, whole, opaque, drawRivetedMetal},
        {"damage_wing_hole.tga", "DXT1", 512, 512, whole, clear(0x4F553C), drawDamagedPanel},
        {"damage_bullets.tga", "DXT5", 256, 256, whole, clear(0x1E1A16), drawBulletHoles},
        {"nose_art_lantern.tga", "DXT5", 512, 256, whole, clear(0x2A1D14), drawNoseArt},
        {"code_letters.tga", "DXT5", 640, 480, 1, clear(0xE6E3D4), drawCodeLetters},
        {"drop_tank.bmp", "DXT1", 512, 128, whole, opaque, drawDropTank},
        {"bomb_500lb.bmp", "DXT1", 300, 200, whole, opaque, drawBombSide},
        {"wheel_main.bmp", "DXT1", 256, 256, whole, opaque, drawTyre},
        {"wheel_tread.bmp", "DXT1", 64, 512, whole, opaque, drawTyreTread},
        {"propeller_disc.tga", "DXT5", 512, 512, whole, clear(0x1F1F1F), drawPropellerDisc},
        {"propeller_blade.tga", "DXT1", 64, 512, 8, clear(0x232526), drawPropellerBlade},
    };
}

std::vector<TextureRow> cockpitRows() {
    return {
        {"cockpit_panel_main.bmp", "DXT1", 2048, 1024, whole, opaque, drawInstrumentPanel},
        {"cockpit_panel_side.bmp", "DXT1", 512, 512, whole, opaque, drawSwitchPanel},
        {"  panneau_gauche.bmp", "DXT1", 512, 256, whole, opaque, drawThrottleQuadrant},
        {"cockpit_placard", "DXT1", 256, 128, 3, opaque, drawPlacard},
        {"gauge_altimeter.bmp", "DXT1", 512, 512, whole, opaque, dial(Instrument::Altimeter)},
        {"gauge_airspeed.bmp", "DXT1", 512, 512, whole, opaque, dial(Instrument::Airspeed)},
        {"gauge_horizon.bmp", "DXT1", 512, 512, whole, opaque, dial(Instrument::Horizon)},
        {"gauge_compass.bmp", "DXT1", 512, 512, whole, opaque, dial(Instrument::Compass)},
        {"gauge_clock.bmp", "DXT1", 256, 256, whole, opaque, dial(Instrument::Clock)},
        {"Gauge_Manifold.bmp", "DXT1", 256, 256, whole, opaque, dial(Instrument::Manifold)},
        {"Gauge_Rpm.bmp", "DXT1", 256, 256, whole, opaque, dial(Instrument::Revolutions)},
        {"gauge_oil_temp.bmp", "DXT1", 256, 256, 5, opaque, dial(Instrument::OilTemperature)},
        {"gauge_fuel.bmp", "DXT1", 256, 256, whole, opaque, dial(Instrument::Fuel)},
        {"gauge_turn_slip.bmp", "DXT1", 256, 256, whole, opaque, dial(Instrument::TurnAndSlip)},
        {"gauge_climb.bmp", "DXT1", 256, 256, whole, opaque, dial(Instrument::Climb)},
        {"needle_long.tga", "DXT5", 32, 256, whole, clear(0xE6E3D0), drawNeedle},
        {"needle_short.tga", "dxt5", 32, 128, whole, clear(0xE6E3D0), drawNeedle},
        {"compass_strip.bmp", "DXT1", 512, 64, whole, opaque, drawCompassStrip},
        {"gunsight_reticle.tga", "DXT5", 512, 512, 1, clear(0xFFB347), drawReticle},
        {"canopy_glass.tga", "dxt5", 512, 512, whole, clear(0xCFE2EE), drawCanopyGlass},
        {"seat_leather.bmp", "DXT1", 256, 256, whole, opaque, drawLeather},
        {"seat_harness.tga", "DXT5", 64, 256, whole, opaque, drawSeatHarness},
        {"map_coast_north.bmp", "DXT1", 1024, 768, whole, opaque, drawMap},
        {"r\xE9servoir_\xFC"
         "bersicht.tga",
         "DXT5", 256, 256, whole, opaque, dial(Instrument::Fuel)},
    };
}

std::vector<TextureRow> natureRows() {
    return {
        {"tree_oak_summer.tga", "DXT1", 512, 512, whole, clear(0x33481F), drawTree},
        {"tree_oak_autumn.tga", "DXT5", 512, 512, whole, clear(0x8A5420), drawAutumnTree},
        {"tree_oak_bare.tga", "DXT5", 256, 256, whole, clear(0x3E3025), drawBareTree},
        {"tree_pine.tga", "DXT1", 256, 512, whole, clear(0x24382A), drawPine},
        {"tree_palm.tga", "DXT1", 256, 512, 6, clear(0x4A6230), drawPalm},
        {"bush_hazel.tga", "DXT1", 256, 256, whole, clear(0x3A4E26), drawBush},
        {"grass_tuft.tga", "DXT5", 256, 128, whole, clear(0x6A7438), drawGrassTuft},
        {"reeds_lake.tga", "DXT1", 128, 256, whole, clear(0x6E6E3C), drawReeds},
        {"ivy_wall.tga", "DXT1", 256, 256, 7, clear(0x2C4A24), drawIvy},
        {"land_grass.bmp", "DXT1", 512, 512, whole, opaque, drawGrass},
        {"land_meadow.bmp", "DXT1", 512, 512, whole, opaque, drawMeadow},
        {"land_field_ploughed.bmp", "DXT1", 512, 512, whole, opaque, drawPloughedField},
        {"land_field_wheat.bmp", "DXT1", 512, 512, whole, opaque, drawWheatField},
        {"land_farmland.bmp", "DXT1", 1024, 1024, whole, opaque, drawFarmland},
        {"Land_Forest.v2.bmp", "DXT1", 512, 512, whole, opaque, drawForest},
        {"land_orchard.bmp", "DXT1", 512, 512, whole, opaque, drawOrchard},
        {"land_water_deep.bmp", "DXT1", 512, 512, whole, opaque, drawWater},
        {"land_water_shallow.bmp", "DXT1", 256, 256, whole, opaque, drawShallows},
        {"land_sand.bmp", "DXT1", 256, 256, whole, opaque, drawSand},
        {"land_rock.bmp", "DXT1", 512, 512, whole, opaque, drawRock},
        {"land_snow.bmp", "DXT1", 256, 256, whole, opaque, drawSnow},
        {"land_mud_ruts.bmp", "DXT1", 256, 256, whole, opaque, drawMud},
    };
}

std::vector<TextureRow> builtRows() {
    return {
        {"city_block.bmp", "DXT1", 1024, 1024, whole, opaque, drawCityBlock},
        {"village_lane.bmp", "DXT1", 512, 512, whole, opaque, drawVillage},
        {"road_country.bmp", "DXT1", 128, 512, whole, opaque, drawRoad},
        {"runway_concrete.bmp", "DXT1", 1024, 256, whole, opaque, drawRunway},
        {"runway_number_09L.bmp", "DXT1", 512, 512, 8, opaque, drawRunwayNumbers},
        {"railway_track.bmp", "DXT1", 128, 512, whole, opaque, drawRailway},
        {"taxiway_steel_planks.bmp", "DXT1", 256, 256, whole, opaque, drawPerforatedPlanks},
        {"hangar_doors.bmp", "DXT1", 1024, 512, whole, opaque, drawHangarDoors},
        {"tower_watch_office.bmp", "DXT1", 512, 512, whole, opaque, drawControlTower},
        {"house_front_brick.bmp", "DXT1", 512, 512, whole, opaque, drawHouseFront},
        {"wall_brick.bmp", "DXT1", 256, 256, whole, opaque, drawBrick},
        {"wall_concrete.bmp", "DXT1", 256, 256, whole, opaque, drawConcrete},
        {"roof_corrugated.bmp", "DXT1", 256, 256, whole, opaque, drawCorrugatedIron},
        {"roof_tiles_red.bmp", "DXT1", 256, 256, whole, opaque, drawRoofTiles},
        {"planks_weathered.bmp", "DXT1", 256, 256, whole, opaque, drawWoodPlanks},
        {"tread_plate.bmp", "DXT1", 128, 128, whole, opaque, drawTreadPlate},
        {"tent_canvas.bmp", "DXT1", 256, 256, whole, opaque, drawCanvasCloth},
        {"sandbag_wall.bmp", "DXT1", 256, 256, whole, opaque, drawSandbags},
        {"ammo_crate_side.bmp", "DXT1", 256, 128, whole, opaque, drawAmmoCrate},
        {"fuel_drum.bmp", "DXT1", 128, 256, whole, opaque, drawFuelDrum},
        {"truck_front.bmp", "DXT1", 256, 128, whole, opaque, drawTruckGrille},
        {"ship_hull_dazzle.bmp", "DXT1", 1024, 256, whole, opaque, drawShipSide},
        {"sign_dispersal.bmp", "DXT1", 256, 128, 2, opaque, drawSignBoard},
        {"stripes_warning.bmp", "DXT1", 100, 60, whole, opaque, drawStripes},
        {"fence_chain_link.tga", "DXT5", 256, 256, whole, clear(0x8A908E), drawChainLink},
        {"fence_barbed_wire.tga", "DXT1", 256, 128, whole, clear(0x6A5C4E), drawBarbedWire},
        {"wire_antenna.tga", "DXT5", 256, 16, whole, clear(0x4A4B48), drawAntennaWire},
        {"mast_lattice_radio.tga", "DXT1", 64, 256, whole, clear(0x8A6A60), drawLatticeMast},
        {"net_camouflage.tga", "DXT1", 256, 256, whole, clear(0x4F5A33), drawCamouflageNet},
        {"ladder_pilot.tga", "DXT1", 37, 106, whole, clear(0xA08030), drawLadder},
    };
}

std::vector<TextureRow> effectRows() {
    return {
        {"fx_smoke_white.tga", "DXT5", 256, 256, whole, clear(0xC0C2C2), drawWhiteSmoke},
        {"fx_smoke_black.tga", "DXT5", 256, 256, whole, clear(0x1A1816), drawBlackSmoke},
        {"fx_dust_runway.tga", "DXT5", 256, 256, whole, clear(0xA08A62), drawDust},
        {"fx_flak_burst.tga", "DXT5", 256, 256, 6, clear(0x2A2826), drawFlakBurst},
        {"fx_fire_engine.tga", "DXT5", 256, 256, whole, clear(0xE8571A), drawFire},
        {"fx_explosion_large.tga", "DXT5", 512, 512, whole, clear(0x6A3018), drawExplosion},
        {"fx_splash_water.tga", "DXT5", 256, 512, whole, clear(0xDCE8EC), drawSplash},
        {"fx_contrail.tga", "DXT5", 512, 64, whole, clear(0xF0F4F8), drawContrail},
        {"fx_tracer_glow.tga", "DXT5", 128, 32, whole, clear(0xF2641C), drawTracer},
        {"fx_muzzle_flash.tga", "DXT5", 128, 128, whole, clear(0xF0701E), drawMuzzleFlash},
        {"fx_searchlight_cone.tga", "DXT5", 256, 512, 1, clear(0xD0E0F4), drawSearchlight},
        {"fx_sun_glow.tga", "DXT5", 256, 256, whole, clear(0xFFEDC0), drawSunGlow},
        {"fx_rain_streaks.tga", "DXT5", 128, 256, 4, clear(0xC4D2DC), drawRain},
        {"sky_cumulus.tga", "DXT5", 512, 256, whole, clear(0xD8DEE6), drawCumulus},
        {"sky_cirrus.tga", "DXT5", 512, 512, whole, clear(0xF3F6FA), drawCirrus},
        {"shadow_blob.tga", "DXT5", 64, 64, whole, clear(0x050505), drawShadowBlob},
        {"shadow_fighter.tga", "DXT5", 128, 128, whole, clear(0x050505), drawAircraftShadow},
        {"decal_oil_stain.tga", "DXT5", 256, 256, whole, clear(0x0E0C0B), drawOilStain},
        {"decal_bomb_crater_large_mud1.tga", "DXT5", 256, 256, whole, clear(0x3A2E22), drawBombCrater},
        {"pilot_parachute.tga", "DXT5", 128, 256, whole, clear(0x8A8474), drawParachute},
    };
}

std::vector<TextureRow> calibrationRows() {
    return {
        {"calibration_color.tga", "DXT5", 1024, 1024, whole, opaque, drawColorCard},
        {"calibration_grey.bmp", "DXT1", 512, 64, whole, opaque, drawGreyCard},
        {"calibration_cutout.tga", "DXT1", 256, 256, whole, clear(0x404040), drawCutOutCard},
        {"calibration_odd.tga", "DXT5", 37, 53, whole, opaque, drawOnePixelFrame},
        {"Alpha_Ramp_32.tga", "DXT5", 32, 8, whole, opaque, drawAlphaRamp},
        {"alpha_ramp_raw.tga", "ARGB", 16, 16, 1, opaque, drawAlphaRamp},
        {"tiny_chequer16.bmp", "DXT1", 16, 16, whole, opaque, drawChequer},
        {"tiny_corners8.bmp", "DXT1", 8, 8, whole, opaque, drawFourCorners},
        {"tiny_corners4.bmp", "DXT5", 4, 4, 1, opaque, drawFourCorners},
        {"tiny_corners2.bmp", "DXT1", 2, 2, whole, opaque, drawFourCorners},
        {"tiny_ramp2x8.bmp", "DXT5", 2, 8, whole, opaque, drawRamp},
        {"tiny_ramp1x4.bmp", "DXT1", 1, 4, whole, opaque, drawRamp},
        {"dot.bmp", "DXT1", 1, 1, 1, opaque, drawFourCorners},
    };
}

} // namespace

Encoding encodingOf(const TextureRow& row) {
    const std::string_view type = row.fourCC;
    if (type == "ARGB") return Encoding::Argb;
    return type == "DXT1" ? Encoding::Dxt1 : Encoding::Dxt5;
}

std::vector<TextureRow> textureRows() {
    std::vector<TextureRow> rows;
    append(rows, aircraftRows());
    append(rows, cockpitRows());
    append(rows, natureRows());
    append(rows, builtRows());
    append(rows, effectRows());
    append(rows, calibrationRows());
    return rows;
}

} // namespace demo
