#!/usr/bin/env python3
"""foreign_values_test.py PRISMO2: a change keeps every other value of the file, whatever its kind."""

import datetime
import plistlib

from device import World, main

VALUES = {
    "date": datetime.datetime(2015, 3, 4, 5, 6, 7), "early": datetime.datetime(1900, 1, 1),
    "late": datetime.datetime(2999, 12, 31, 23, 59, 59),
    "data": bytes(range(256)), "no data": b"", "long data": b"\xff" * 5000,
    "real": 0.1, "whole real": 2.0, "small real": 5e-324, "large real": 1.7976931348623157e308, "minus": -0.0,
    "integer": -1, "zero": 0, "largest": 2**63 - 1, "smallest": -(2**63), "unsigned": 2**64 - 1,
    "true": True, "false": False,
    "text": "", "spaces": "  a\tb\n ", "markup": "<&>\"' ]]>", "beyond": "\U0001f3a8 \U00010348",
    "accents": "e\u0301 é",
    "array": [], "dictionary": {},
    "nested": {"a": [1, [2.5, {"b": b"x", "c": [True, "d", datetime.datetime(2001, 1, 1)]}]]},
    "": "an empty key", "\U0001f511": "a key beyond the first plane", "kéy <&>": 1,
    "deep": [[[[[[[[[[[[[[[[["down here"]]]]]]]]]]]]]]]]],
}
CHANGES = [(["set", "enabled", "off"], {"enabled": False}), (["type", "nc", "custom"], {"nc_color_type": 2}),
           (["color", "nc", "abc"], {"nc_color": "#aabbcc:1.000000"}), (["clear-cache"], {}),
           (["store", "com.corvane.prismo2", "set", "a", "1"], {"a": 1})]


def typed(value):
    """With types, since 1, 1.0 and True are equal, and so are 0.0 and -0.0."""
    if isinstance(value, dict):
        return {key: typed(each) for key, each in value.items()}
    if isinstance(value, list):
        return [typed(each) for each in value]
    return type(value).__name__, repr(value) if isinstance(value, float) else value


class ForeignValues(World):
    def changed(self, values, format):
        for words, change in CHANGES:
            self.store(values, format)
            self.ask(*words)
            self.assertEqual(typed(self.settings()), typed(values | change), words)

    def test_xml_file(self):
        self.changed(VALUES, plistlib.FMT_XML)

    def test_binary_file(self):
        self.changed(VALUES, plistlib.FMT_BINARY)

    def test_uids_of_a_binary_file_are_kept_in_their_xml_form(self):
        self.store({"uid": plistlib.UID(5), "large": [plistlib.UID(2**32 - 1)]}, plistlib.FMT_BINARY)
        self.ask("set", "enabled", "off")
        self.assertEqual(self.settings(), {"uid": {"CF$UID": 5}, "large": [{"CF$UID": 2**32 - 1}], "enabled": False})

    def test_dates_of_a_binary_file_are_kept_to_the_second(self):
        self.store({"date": datetime.datetime(2015, 3, 4, 5, 6, 7, 750000)}, plistlib.FMT_BINARY)
        self.ask("set", "enabled", "off")
        self.assertEqual(self.settings(), {"date": datetime.datetime(2015, 3, 4, 5, 6, 7), "enabled": False})

    def test_many_keys_are_kept(self):
        self.changed({f"com.example.app{n}_keyboard_color_type": n % 3 for n in range(3000)}, plistlib.FMT_BINARY)

    def test_other_kinds_are_shown_as_json(self):
        self.store(VALUES | {"uid": plistlib.UID(5)}, plistlib.FMT_BINARY)
        shown = self.ask_json("store", "com.corvane.prismo2", "list")["values"]
        self.assertEqual(shown["date"], "2015-03-04T05:06:07Z")
        self.assertEqual(shown["data"], {"data": bytes(range(256)).hex()})
        self.assertEqual(shown["uid"], {"uid": 5})
        for key in ("largest", "smallest", "unsigned", "beyond", "markup", "real", "true", "\U0001f511", "deep", ""):
            self.assertEqual(shown[key], VALUES[key], key)
        self.assertEqual(shown["nested"], {"a": [1, [2.5, {"b": {"data": "78"},
                                                           "c": [True, "d", "2001-01-01T00:00:00Z"]}]]})
        self.assertEqual(set(shown), set(VALUES) | {"uid"})

    def test_an_empty_file_is_not_a_problem(self):
        self.settings_path.write_bytes(b"")
        self.ask("set", "enabled", "off")
        self.assertEqual(self.settings(), {"enabled": False})


if __name__ == "__main__":
    main()
