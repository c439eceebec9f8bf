#ifndef TALLYFIN99_H
#define TALLYFIN99_H

/* libtallyfin99 works out what is withheld from United States paychecks of tax year 1999. tallyfin99(3) describes it.
 *
 * A paycheck has columns, each with a text, and after it is worked twelve results and a problem. The columns, their
 * texts and defaults and the results are those of tallyfin99-batch(1). Paychecks share no state.
 *
 * Any number of threads may work paychecks at once, but a single paycheck one thread at a time. No function throws,
 * aborts, prints, or reads a file or an environment variable. For a number out of range, or a null object, a
 * function returns false, NULL or 0, and changes nothing. A text that a function returns is valid until the next call
 * on the same paycheck; a name is valid for the lifetime of the program. */

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#if defined(__GNUC__)
#define TALLYFIN99_API __attribute__((visibility("default")))
#else
#define TALLYFIN99_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* One paycheck. */
typedef struct tallyfin99_paycheck tallyfin99_paycheck;

/* The version of the library, such as "1.0.0". */
TALLYFIN99_API const char* tallyfin99_version(void);

/* The number of columns. A column is a number from 0. */
TALLYFIN99_API int tallyfin99_columns(void);
/* The name of a column; NULL for a number out of range. */
TALLYFIN99_API const char* tallyfin99_column_name(int column);
/* The column of a name, letter case aside; -1 where there is none. */
TALLYFIN99_API int tallyfin99_column(const char* name);

/* The number of results. A result is a number from 0. */
TALLYFIN99_API int tallyfin99_results(void);
/* The name of a result; NULL for a number out of range. */
TALLYFIN99_API const char* tallyfin99_result_name(int result);

/* A paycheck whose columns are all empty; NULL where there is no memory. */
TALLYFIN99_API tallyfin99_paycheck* tallyfin99_new(void);
/* Frees a paycheck. NULL is allowed. */
TALLYFIN99_API void tallyfin99_free(tallyfin99_paycheck* paycheck);
/* Empties all columns. */
TALLYFIN99_API void tallyfin99_clear(tallyfin99_paycheck* paycheck);

/* Sets a column to a text of a length in bytes, without a terminating zero. The length 0 empties the column, also with
 * a null text. A text that can't be understood is reported when the paycheck is worked. False where there is no memory.
 */
TALLYFIN99_API bool tallyfin99_set(tallyfin99_paycheck* paycheck, int column, const char* text, size_t length);
/* Sets a column to the text of a number. */
TALLYFIN99_API bool tallyfin99_set_integer(tallyfin99_paycheck* paycheck, int column, int64_t number);
/* Sets a column to the shortest text that reads back as the number; one that isn't a number (NaN) empties it. */
TALLYFIN99_API bool tallyfin99_set_real(tallyfin99_paycheck* paycheck, int column, double number);

/* Works the paycheck. True where there are results. The columns don't change. */
TALLYFIN99_API bool tallyfin99_work(tallyfin99_paycheck* paycheck);
/* A result in ten-thousandths of a dollar; 0 where there are none. */
TALLYFIN99_API int64_t tallyfin99_result(const tallyfin99_paycheck* paycheck, int result);
/* The problem of the paycheck when it was worked last, in the order of the columns; "" for none. A paycheck
 * with results may have a problem too. */
TALLYFIN99_API const char* tallyfin99_problem(const tallyfin99_paycheck* paycheck);

/* How each result was calculated: a JSON object of the twelve titles of the results grid, each with a list of lines;
 * "null" where there are no results. Works the paycheck once more. NULL where there is no memory. */
TALLYFIN99_API const char* tallyfin99_explanation(tallyfin99_paycheck* paycheck);

#ifdef __cplusplus
}
#endif

#endif
