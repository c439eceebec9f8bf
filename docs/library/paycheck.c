/* A paycheck worked through libtallyfin99: what is withheld from 1,000.00 a week in Pennsylvania, and how the federal tax
 * came about.
 *
 *   cc paycheck.c $(pkg-config --cflags --libs tallyfin99) -o paycheck */
#include <stdio.h>
#include <string.h>

#include <tallyfin99.h>

static bool set(tallyfin99_paycheck *paycheck, const char *column, const char *text) {
  return tallyfin99_set(paycheck, tallyfin99_column(column), text, strlen(text));
}

int main(void) {
  tallyfin99_paycheck *paycheck = tallyfin99_new();
  if (paycheck == NULL) return 1;
  set(paycheck, "income", "1,000");
  set(paycheck, "frequency", "Weekly");
  set(paycheck, "state", "PA");
  tallyfin99_set_integer(paycheck, tallyfin99_column("exemptions"), 2);
  tallyfin99_set_real(paycheck, tallyfin99_column("rate_401k"), 0.06);
  if (tallyfin99_work(paycheck)) {
    for (int result = 0; result < tallyfin99_results(); ++result) {
      printf("%-17s %11.4f\n", tallyfin99_result_name(result), (double)tallyfin99_result(paycheck, result) / 10000);
    }
  }
  if (tallyfin99_problem(paycheck)[0] != '\0') printf("%s\n", tallyfin99_problem(paycheck));
  tallyfin99_free(paycheck);
  return 0;
}
