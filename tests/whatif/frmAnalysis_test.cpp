#include <gmock/gmock.h>

#include "support/program.h"

namespace tallyfin {
namespace {

class Analysis : public ProgramTest {
 protected:
  /// The figures of a calculation, independent of any table.
  static void setFigures() {
    payData.grossPay = 1000;
    payData.fedTax = 100;
    payData.stateTax = 30;
    payData.localTax = 10;
    payData.socSec = 62;
    payData.medicare = dollars("14.5");
    payData.fica = dollars("76.5");
    payData.amt401k = 60;
    payData.preTax = 40;
  }
  static void expectRows(const std::array<const char*, 10>& rows) {
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(desk.use<frmAnalysis>().lblOne[i].caption(), rows[static_cast<std::size_t>(i)]) << i;
    }
  }
};

TEST_F(Analysis, ShowsTenRatiosOfTheLastCalculation) {
  put("Frequency", "0");
  start();
  setFigures();
  choose("Analysis");
  EXPECT_TRUE(desk.use<frmAnalysis>().maximized());
  expectRows({"$25.00", "$21.50", "$17.45", "14.%", "30.2%", "10.2%", "10.%", "3.%", "$52,000.00", "$44,720.00"});
}

TEST_F(Analysis, LeavesTheHourlyRowsEmptyWithoutHours) {
  put("Hours", "0");
  start();
  setFigures();
  choose("Analysis");
  expectRows({"", "", "", "14.%", "30.2%", "10.2%", "10.%", "3.%", "", ""});
}

TEST_F(Analysis, LeavesAShareOfNothingEmpty) {
  put("Frequency", "0");
  start();
  payData.grossPay = 100;
  payData.amt401k = 100;
  choose("Analysis");
  expectRows({"$2.50", "$2.50", "$0.00", ".%", "100.%", "", ".%", ".%", "$5,200.00", "$5,200.00"});
}

TEST_F(Analysis, GoesByTheHoursOfTheFrequencyOnceTheMainScreenIsClosed) {
  put("Frequency", "0");
  start();
  setFigures();
  main().txtHours.userType("10");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$25.00");
}

TEST_F(Analysis, GoesByTheHoursInTheBoxOfAMainScreenBeneath) {
  put("Frequency", "0");
  start();
  setFigures();
  main().txtHours.userType("10");
  choose("W4");
  choose("Analysis");  // closes the form only
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$100.00");
}

TEST_F(Analysis, GoesByTheHoursOfEachOpeningAndNotThoseOfTheFirst) {
  put("Frequency", "0");
  start();
  setFigures();
  choose("W4");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$25.00");
  EXPECT_EQ(desk.userClose(desk.use<frmAnalysis>()), Refusal::none);
  EXPECT_EQ(main().txtHours.userType("10"), Refusal::none);
  choose("W4");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$100.00");
}

TEST_F(Analysis, MultipliesTheCentsThatItShows) {
  put("Frequency", "1");  // 86.66 hours
  start();
  payData.grossPay = 1000;
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$11.54");  // 11.5393
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[8].caption(), "$24,003.20");
}

TEST_F(Analysis, IsMadeOnceForEachOpening) {
  put("Frequency", "0");
  start();
  setFigures();
  choose("Analysis");
  payData.grossPay = 2000;
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$25.00");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$50.00");
}

}  // namespace
}  // namespace tallyfin
