"""docs/hardened.md lists every line that a test provokes, sorted, and no other."""
import re
import sys
from pathlib import Path

tests = "".join(path.read_text() for path in Path("tests").glob("*/hardened_test.cpp"))
tests = re.sub(r'"\s+"', "", tests)
provoked = sorted(set(re.findall(r'EXPECT_STOP\(\s*"([^"]*)"', tests)))
listed = re.search(r"^## The lines$.*?^```\n(.*?)^```", Path("docs/hardened.md").read_text(), re.M | re.S)[1].splitlines()
for line in sorted(set(provoked) ^ set(listed)):
    print(("not listed: " if line in provoked else "provoked by no test: ") + line)
sys.exit(provoked != listed)
