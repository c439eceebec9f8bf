#include "stateoptions/shapes.h"

namespace tallyfin {

namespace {

/// The marital buttons that a state enables, by index.
constexpr int buttons036[] = {0, 3, 6};
constexpr int buttons038[] = {0, 3, 8};
constexpr int buttons0389[] = {0, 3, 8, 9};
constexpr int buttons039[] = {0, 3, 9};
constexpr int buttons0789[] = {0, 7, 8, 9};
constexpr int buttons12345[] = {1, 2, 3, 4, 5};

constexpr const char* arizonaEntries[] = {"10", "20", "22", "28", "32"};
constexpr SpecialList arizonaList{"Select Withholding Percentage", arizonaEntries, "20"};

constexpr const char* californiaEntries[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
constexpr SpecialList californiaList{"Estimated Deductions", californiaEntries, "0"};

// The list of the base shape, enabled.
constexpr const char* louisianaEntries[] = {"0", "1", "2"};
constexpr SpecialList louisianaList{"Additional (State) Exemptions", louisianaEntries, "0"};

// The box is empty until a county rate is chosen.
constexpr const char* marylandEntries[] = {"48", "50", "55", "56", "58", "60"};
constexpr SpecialList marylandList{"Maryland Local Tax Rates", marylandEntries, ""};

constexpr const char* michiganEntries[] = {"0", "1", "2", "3", "4", "5"};
constexpr SpecialList michiganList{"Special Exemptions", michiganEntries, "0"};

}  // namespace

const std::array<Shape, 42> shapes{{
    /* No State */ {},
    /* Alabama */ {.marital = buttons12345, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* Arizona */
    {.dependents = false, .special = &arizonaList, .opens = true, .reads = {.special = true, .untaxed = false}},
    /* Arkansas */ {.marital = buttons12345, .opens = true},
    /* California */
    {.marital = buttons0389,
     .special = &californiaList,
     .opens = true,
     .reads = {.dependents = true, .special = true, .marital = true}},
    /* Colorado */ {},
    /* Connecticut */ {.rates = true, .dependents = false, .opens = true},
    /* Delaware */ {.marital = buttons036, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* Dist of Columbia */ {.marital = buttons036, .opens = true, .reads = {.marital = true}},
    /* Georgia */ {.marital = buttons036, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* Hawaii */ {.marital = buttons039, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* Idaho */ {},
    /* Illinois */ {.opens = true, .reads = {.dependents = true, .illinoisDependents = true}},
    /* Indiana */ {.opens = true, .reads = {.dependents = true}},
    /* Iowa */ {},
    /* Kansas */ {},
    /* Kentucky */ {.opens = true},
    /* Louisiana */ {.special = &louisianaList, .opens = true, .reads = {.dependents = true, .special = true}},
    /* Maine */ {.marital = buttons038, .opens = true},
    /* Maryland */ {.special = &marylandList, .opens = true, .reads = {.special = true}},
    /* Massachusettes */ {.marital = buttons039, .opens = true, .reads = {.marital = true}},
    /* Michigan */
    {.marital = buttons039, .special = &michiganList, .opens = true, .reads = {.special = true, .marital = true}},
    /* Minnesota */ {},
    /* Mississippi */ {.marital = buttons0789, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* Missouri */ {},
    /* Nebraska */ {},
    /* New Jersey */ {.rates = true, .opens = true, .reads = {.dependents = true}},
    /* New Mexico */ {.dependents = false, .opens = true},
    /* New York */ {.dependents = false, .opens = true},
    /* North Carolina */ {.marital = buttons039, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* North Dakota */ {.reads = {.untaxed = false}},
    /* Ohio */ {},
    /* Oklahoma */ {.marital = buttons038, .opens = true, .reads = {.dependents = true, .marital = true}},
    /* Oregon */ {},
    /* Pennsylvania */ {},
    /* Rhode Island */ {},
    /* South Carolina */ {},
    /* Utah */ {},
    /* Vermont */ {},
    /* Virginia */ {},
    /* West Virginia */ {},
    /* Wisconsin */ {},
}};

bool opensStateOptions(int stateIndex) {
  return stateIndex >= 0 && shapes.at(static_cast<std::size_t>(stateIndex)).opens;
}

}  // namespace tallyfin
