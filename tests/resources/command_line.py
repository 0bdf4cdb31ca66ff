"""The manual page and the completion of tarvo-batch against the program. Usage: command_line.py PROGRAM SOURCE_DIR"""
import pathlib
import re
import subprocess
import sys
import unittest

PROGRAM, SOURCE = sys.argv[1], pathlib.Path(sys.argv[2])
# What bash-completion itself would bring, as far as it is used.
BASH = """
_init_completion() { words=("${COMP_WORDS[@]}"); cword=$COMP_CWORD; cur=${words[cword]}; prev=${words[cword-1]}; }
_filedir() { COMPREPLY=("files${1:+ $1}"); }
compopt() { :; }
. "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tarvo_batch
printf '%s\\n' "${COMPREPLY[@]}"
"""


def ask(*arguments):
    return subprocess.run([PROGRAM, *arguments], check=True, capture_output=True, text=True).stdout


def options_of_program():
    return set(re.findall(r"^ *(?:-\w,)?(--[a-z-]+)", ask("--help"), re.MULTILINE))


def complete(*words):
    run = subprocess.run(["bash", "-c", BASH, "bash", SOURCE / "resources/completion/tarvo-batch", PROGRAM, *words],
                         capture_output=True, text=True, check=True)
    return run.stdout.split("\n")[:-1]


class CommandLine(unittest.TestCase):
    def test_the_page_tells_every_option_and_no_other(self):
        page = (SOURCE / "docs/man/tarvo-batch.1").read_text().replace("\\-", "-")
        described = re.findall(r"^\.(?:B|BI|BR) (?:-\w \", \" )?\"?(--[a-z-]+)", page, re.MULTILINE)
        self.assertEqual(sorted(described), sorted(options_of_program()))

    def test_completion(self):
        self.assertIn("--report", complete("--rep"))
        self.assertEqual(set(complete("--")), options_of_program())
        self.assertEqual(complete("--set", "upsonde-1"), ["upsonde-10s", "upsonde-1s"])
        self.assertEqual(complete("--formats", "raw-csv,wm"), ["raw-csv,wmo"])
        self.assertEqual(complete("--out", ""), ["files -d"])
        self.assertEqual(complete("D2021"), ["files"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
