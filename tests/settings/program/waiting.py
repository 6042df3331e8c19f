"""Waits for conditions instead of fixed times."""

import time


def until(condition, what, deadline=10):
    """Polls until the condition returns a true value, and returns it."""
    end = time.monotonic() + deadline
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"not within {deadline} s: {what() if callable(what) else what}")
        time.sleep(0.005)
