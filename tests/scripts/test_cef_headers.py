"""cef/wrapper/headers_compile.cpp, in which every build compiles CEF's headers together."""

import re
from pathlib import Path

CEF = Path(__file__).resolve().parents[2] / "cef"
# A list to be included with a macro for its lines, not a header by itself.
LISTS = {"include/base/internal/cef_net_error_list.h"}


def test_every_header_is_compiled():
    source = (CEF / "wrapper/headers_compile.cpp").read_text()
    compiled = re.findall(r'#include "(.+)"', source)
    headers = {path.relative_to(CEF).as_posix() for path in (CEF / "include").rglob("*.h")}
    assert sorted(compiled) == sorted(headers - LISTS)
