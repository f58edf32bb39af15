"""Steps of a steps file (docs/kzhost.md), as Python calls."""

import json

# How long a step waits for a notification: the first page of a cold machine takes seconds.
TIMEOUT_MS = 40_000


def do(step, **members):
    return {"do": step, **members}


def wait(notification, browser=None, **where):
    members = {"notification": notification, "timeout": TIMEOUT_MS}
    if browser:
        members["browser"] = browser
    if where:
        members["where"] = where
    return do("wait", **members)


def created(browser=None):
    return wait("BrowserCreatedNotify", browser)


def loaded(browser=None):
    """The page with all that is in it has been loaded."""
    return wait("LoadingStateChangeNotify", browser, IsLoading=False)


def load(url, browser=None, **members):
    if browser:
        members["browser"] = browser
    return do("load", url=url, **members)


def script(code, browser=None):
    return do("script", code=code, **({"browser": browser} if browser else {}))


def pixel(x, y, colour, browser=None):
    members = {"x": x, "y": y, "colour": colour, "timeout": TIMEOUT_MS}
    return do("pixel", **members, **({"browser": browser} if browser else {}))


def as_text(steps):
    """Dictionaries are steps; texts are lines as they stand."""
    return "".join(
        (step if isinstance(step, str) else json.dumps(step, ensure_ascii=False)) + "\n"
        for step in steps
    )
