"""The file of paychecks that the benchmarks of many paychecks share."""
import pathlib
import subprocess

root = pathlib.Path(__file__).resolve().parent.parent
header = "id,income,frequency,status,exemptions,state,rate_401k\n"
_states = ["New York", "Pennsylvania", "California", "Maryland", "Illinois", "No State"]


def some():
    """Rows without their first cell."""
    return [f"{income / 100},Weekly,Single,{income % 16},{_states[income % 6]},6\n" for income in range(20011, 420011, 97)]


def write(path, count):
    block = some()
    with open(path, "w") as file:
        file.write(header)
        for number in range(count):
            file.write(f"{number},{block[number % len(block)]}")


def build(*targets):
    """Builds programs of the release with the benchmarks, without the desktop."""
    for command in (["cmake", "--preset", "bench", "-DTALLYFIN_DESKTOP=OFF"],
                    ["cmake", "--build", "--preset", "bench", "--target", *targets]):
        subprocess.run(command, cwd=root, check=True, stdout=subprocess.DEVNULL)
