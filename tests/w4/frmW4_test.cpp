#include <gmock/gmock.h>

#include "support/program.h"

namespace tallyfin {
namespace {

using testing::Contains;
using testing::Not;

class FormW4 : public ProgramTest {
 protected:
  static frmW4& form() { return desk.use<frmW4>(); }
  void open() {
    start();
    choose("W4");
  }
};

TEST_F(FormW4, ShowsDashesWhereNothingIsSaved) {
  open();
  for (const TextBox* box : {&form().txtName, &form().txtAddress, &form().txtCity, &form().txtSSN}) {
    EXPECT_EQ(box->text(), "-");
  }
  EXPECT_EQ(form().lblW4Line5.caption(), "0");
  EXPECT_EQ(form().lblW4Line6.caption(), "");
  EXPECT_EQ(form().lblDate.caption(), "5/17/1999 2:30:00 PM");
  EXPECT_FALSE(form().optSingle.value());
  EXPECT_FALSE(form().optMarried.value());
}

TEST_F(FormW4, ShowsTheUserAsSaved) {
  store.write(section::user, "UName", "Ann Lee");
  store.write(section::user, "USSN", "123456789");
  store.write(section::user, "UAdd", "12 Harbor Street");
  store.write(section::user, "UCity", "Port Ellery");
  open();
  EXPECT_EQ(form().txtName.text(), "Ann Lee");
  EXPECT_EQ(form().txtSSN.text(), "123456789");
  EXPECT_EQ(form().txtAddress.text(), "12 Harbor Street");
  EXPECT_EQ(form().txtCity.text(), "Port Ellery");
  form().txtName.userType("Somebody Else");
  form().cmdW4Exit.userClick();
  EXPECT_EQ(storedUser("UName"), "Ann Lee");
}

TEST_F(FormW4, IsUsableWithoutAPlatform) {
  tallyfin::platform = plainPlatform();
  open();
  EXPECT_EQ(form().userDblClick(), Refusal::none);
  EXPECT_TRUE(form().cmdW4Exit.visible());
}

TEST_F(FormW4, PrintsItselfWithoutTheButtonAndTheHint) {
  open();
  EXPECT_EQ(form().userDblClick(), Refusal::none);
  EXPECT_EQ(platform.pages, 1);
  EXPECT_THAT(platform.printed, Contains("Label1"));
  EXPECT_THAT(platform.printed, Not(Contains("cmdW4Exit")));
  EXPECT_THAT(platform.printed, Not(Contains("lblPrint")));
  EXPECT_TRUE(form().cmdW4Exit.visible());
  EXPECT_TRUE(form().lblPrint.visible());
  form().userClick();
  EXPECT_EQ(platform.pages, 1);
}

TEST_F(FormW4, PrintsItselfWhereAFixedTextIsDoubleClicked) {
  open();
  EXPECT_EQ(form().Label22.userDblClick(), Refusal::none);
  EXPECT_EQ(platform.pages, 1);
  EXPECT_EQ(form().Label22.userClick(), Refusal::none);
  EXPECT_EQ(form().Label27.userDblClick(), Refusal::notShown);
  EXPECT_EQ(platform.pages, 1);
}

TEST_F(FormW4, SaysExemptAfterADoubleClick) {
  open();
  EXPECT_FALSE(form().Label27.visible());
  form().Label20.userDblClick();
  EXPECT_TRUE(form().Label27.visible());
  form().Label20.userDblClick();
  EXPECT_TRUE(form().Label27.visible());
  form().Label20.userClick();
  EXPECT_FALSE(form().Label27.visible());
  EXPECT_EQ(platform.pages, 0);
}

TEST_F(FormW4, ReadsTheStatusAsTrueOrFalse) {
  for (const auto& [text, selected] : {std::pair{"True", true},
                                       {"-1", true},
                                       {"1", true},
                                       {"2.5", true},
                                       {"false", false},
                                       {"0", false},
                                       {"FALSE", false},
                                       {"yes", false},
                                       {"", false}}) {
    store.write(section::user, "Marital0", text);
    open();
    EXPECT_EQ(form().optMarried.value(), selected) << text;
    EXPECT_FALSE(form().optSingle.value());
  }
}

TEST_F(FormW4, LetsTheMarriedKeyWinWhereBothAreTrue) {
  store.write(section::user, "Marital0", "true");
  store.write(section::user, "Marital1", "true");
  open();
  EXPECT_TRUE(form().optMarried.value());
  EXPECT_FALSE(form().optSingle.value());
}

TEST_F(FormW4, ShowsTheAllowancesOfItsLoad) {
  start();
  payData.w4Allowances = 7;
  choose("W4");
  EXPECT_EQ(form().lblW4Line5.caption(), "7");
  payData.w4Allowances = 8;
  choose("W4");  // shown already
  EXPECT_EQ(form().lblW4Line5.caption(), "7");
}

}  // namespace
}  // namespace tallyfin
