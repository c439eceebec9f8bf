#include "engine/statelist.h"

#include "states/states.h"

namespace TALLYFIN_FIGURES {

/// The states, each with the source that defines its routine. The tables of the state are there too, or in the header
/// of the same name: oregontables.h beside oregon.cpp, eightbandtables.h beside eightbandstates.cpp.
const std::array<State, 42> stateList{{
    {"No State", nullptr, nullptr},
    {"Alabama", Alabama, "annualbandstates.cpp"},
    {"Arizona", Arizona, "flatratestates.cpp"},
    {"Arkansas", Arkansas, "annualbandstates.cpp"},
    {"California", CalifTax, "california.cpp"},
    {"Colorado", Colorado, "periodbandstates.cpp"},
    {"Connecticut", Connecticut, "connecticut.cpp"},
    {"Delaware", Delaware, "annualbandstates.cpp"},
    {"Dist of Columbia", DCTax, "periodbandstates.cpp"},
    {"Georgia", Georgia, "longschedulestates.cpp"},
    {"Hawaii", HawaiiTax, "periodbandstates.cpp"},
    {"Idaho", Idaho, "longschedulestates.cpp"},
    {"Illinois", Illinois, "flatratestates.cpp"},
    {"Indiana", IndianaTax, "flatratestates.cpp"},
    {"Iowa", IowaTax, "wholedollarstates.cpp"},
    {"Kansas", Kansas, "periodbandstates.cpp"},
    {"Kentucky", Kentucky, "annualbandstates.cpp"},
    {"Louisiana", Louisiana, "flatratestates.cpp"},
    {"Maine", MaineTax, "wholedollarstates.cpp"},
    {"Maryland", Maryland, "maryland.cpp"},
    {"Massachusettes", Massachusetts, "flatratestates.cpp"},
    {"Michigan", MichiganTax, "flatratestates.cpp"},
    {"Minnesota", Minnesota, "wholedollarstates.cpp"},
    {"Mississippi", Mississippi, "wholedollarstates.cpp"},
    {"Missouri", Missouri, "missouri.cpp"},
    {"Nebraska", NebraskaTax, "eightbandstates.cpp"},
    {"New Jersey", NewJersey, "newjersey.cpp"},
    {"New Mexico", NewMexico, "eightbandstates.cpp"},
    {"New York", NewYork, "newyork.cpp"},
    {"North Carolina", NCarolina, "northcarolina.cpp"},
    {"North Dakota", NorthDakota, "percentagestates.cpp"},
    {"Ohio", Ohio, "frequencyschedulestates.cpp"},
    {"Oklahoma", Oklahoma, "oklahoma.cpp"},
    {"Oregon", Oregon, "oregon.cpp"},
    {"Pennsylvania", Penn, "percentagestates.cpp"},
    {"Rhode Island", RhodeIsland, "sixandsevenbandstates.cpp"},
    {"South Carolina", SCarolina, "annualschedulestates.cpp"},
    {"Utah", Utah, "sixandsevenbandstates.cpp"},
    {"Vermont", Vermont, "sixandsevenbandstates.cpp"},
    {"Virginia", Virginia, "annualschedulestates.cpp"},
    {"West Virginia", WestVirginia, "frequencyschedulestates.cpp"},
    {"Wisconsin", Wisconsin, "wisconsin.cpp"},
}};

}  // namespace TALLYFIN_FIGURES
