#include "engine/statelist.h"

#include "states/states.h"

namespace tallyfin {

const std::array<State, 42> stateList{{
    {"No State", nullptr},
    {"Alabama", Alabama},
    {"Arizona", Arizona},
    {"Arkansas", Arkansas},
    {"California", CalifTax},
    {"Colorado", Colorado},
    {"Connecticut", Connecticut},
    {"Delaware", Delaware},
    {"Dist of Columbia", DCTax},
    {"Georgia", Georgia},
    {"Hawaii", HawaiiTax},
    {"Idaho", Idaho},
    {"Illinois", Illinois},
    {"Indiana", IndianaTax},
    {"Iowa", IowaTax},
    {"Kansas", Kansas},
    {"Kentucky", Kentucky},
    {"Louisiana", Louisiana},
    {"Maine", MaineTax},
    {"Maryland", Maryland},
    {"Massachusettes", Massachusetts},
    {"Michigan", MichiganTax},
    {"Minnesota", Minnesota},
    {"Mississippi", Mississippi},
    {"Missouri", Missouri},
    {"Nebraska", NebraskaTax},
    {"New Jersey", NewJersey},
    {"New Mexico", NewMexico},
    {"New York", NewYork},
    {"North Carolina", NCarolina},
    {"North Dakota", NorthDakota},
    {"Ohio", Ohio},
    {"Oklahoma", Oklahoma},
    {"Oregon", Oregon},
    {"Pennsylvania", Penn},
    {"Rhode Island", RhodeIsland},
    {"South Carolina", SCarolina},
    {"Utah", Utah},
    {"Vermont", Vermont},
    {"Virginia", Virginia},
    {"West Virginia", WestVirginia},
    {"Wisconsin", Wisconsin},
}};

}  // namespace tallyfin
