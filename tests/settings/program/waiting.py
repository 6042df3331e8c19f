"""Waiting for a condition, never for a time."""

import time


def until(condition, what, deadline=10):
    """Polls until the condition gives something true, and returns that."""
    end = time.monotonic() + deadline
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"not within {deadline} s: {what() if callable(what) else what}")
        time.sleep(0.005)
