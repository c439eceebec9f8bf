#include "engine/statelist.h"

#include "states/states.h"
#include "support/paycheck.h"

namespace tallyfin {
namespace {

TEST(StateList, HasNoStateAndFortyOneRoutinesInTheOrderOfTheScreens) {
  const std::array<std::pair<const char*, void (*)()>, 42> list{{
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
  for (std::size_t i = 0; i < list.size(); ++i) {
    EXPECT_STREQ(stateList[i].caption, list[i].first);
    EXPECT_EQ(stateList[i].routine, list[i].second) << list[i].first;
  }
}

class CallStateRoutine : public PaycheckTest {};

TEST_F(CallStateRoutine, GoesByTheChosenEntry) {
  payData.grossPay = 1000;
  payData.fedTax = 100;
  sheet.state = 34;
  callStateRoutine();
  EXPECT_EQ(payData.stateTax, 28);  // Pennsylvania
  sheet.state = 30;
  callStateRoutine();
  EXPECT_EQ(payData.stateTax, 14);  // North Dakota
}

TEST_F(CallStateRoutine, CallsNoneOutsideTheFortyOne) {
  payData.stateTax = 33;
  payData.grossPay = 1000;
  for (const int state : {-1, 0, 42}) {
    sheet.state = state;
    callStateRoutine();
    EXPECT_EQ(payData.stateTax, 33) << state;
  }
}

class RepeatedCalculation : public PaycheckTest {};

TEST_F(RepeatedCalculation, AddsTheAdditionalAmountPerPeriodAfterTheRate) {
  payData.staAdd = 5;
  sheet.state = 34;
  callStateRoutine();
  EXPECT_EQ(payData.stateTax, 5);  // nothing earned: the whole withholding
  callStateRoutine();
  EXPECT_EQ(payData.stateTax, 5);
}

TEST_F(RepeatedCalculation, AddsTheAdditionalAmountAgainWhereNothingIsAssigned) {
  payData.grossPay = dollars("922337203685477");
  payData.preTax = dollars("-922337203685477");  // the base overflows, so the rate step fails
  store.write(section::stateInfo, "staPreTax", "Y");
  payData.staAdd = 5;
  sheet.state = 34;
  callStateRoutine();
  EXPECT_EQ(payData.stateTax, 5);
  callStateRoutine();
  EXPECT_EQ(payData.stateTax, 10);
}

}  // namespace
}  // namespace tallyfin
