#!/usr/bin/env python3
"""colors_test.py PRISMO2: the elements' colors, shown and stored through the picker and through their rows."""

import itertools

from device import APP, ELEMENTS, World, main

ACCEPTED = {
    "#102030": "#102030:1.000000", "102030": "#102030:1.000000", "#abc": "#aabbcc:1.000000",
    "AbC": "#aabbcc:1.000000", "#ABCDEF": "#abcdef:1.000000", "102030:0.5": "#102030:0.500000",
    "#102030:1": "#102030:1.000000", "#abc:0": "#aabbcc:0.000000", "abc:0.123456": "#aabbcc:0.123456",
    "abc:1.0": "#aabbcc:1.000000", "abc:.5": "#aabbcc:0.500000", "000": "#000000:1.000000",
    "#ffffff:0.1234567": "#ffffff:0.123457",
}
REJECTED = ["", "#", ":", "#12", "#1234", "#12345", "#1234567", "#12345678", "ggg", "#ggg", "##abc", "red", "abc:",
            "abc:2", "abc:-1", "abc:-0", "abc:1.01", "abc:x", "abc:nan", "abc:inf", "abc:1e-1", "abc:0,5", "abc:0.5:1",
            " abc", "abc ", "0xabc", "+bc", "-bc", "abc:+1", "ab c", "#abc\n", "abc:0.5 "]


class Colors(World):
    scopes = [([], "", ELEMENTS), (["--app", APP], APP + "_", ELEMENTS[:-1])]

    def test_each_element_is_stored_only_under_its_own_key(self):
        for options, prefix, elements in self.scopes:
            for index, element in enumerate(elements):
                self.ask(*options, "color", element, f"#0{index}0203")
                self.assertEqual(self.settings()[f"{prefix}{element}_color"], f"#0{index}0203:1.000000")
                self.assertEqual(self.ask(*options, "color", element), f"#0{index}0203\n")
        self.assertEqual(len(self.settings()), 15)

    def test_a_row_stores_what_the_picker_stores(self):
        for options, prefix, elements in self.scopes:
            for element in elements:
                self.ask(*options, "set", f"{element}_color", "#fed:0.25")
                self.assertEqual(self.settings()[f"{prefix}{element}_color"], "#ffeedd:0.250000")

    def test_accepted_texts_are_stored_in_one_form(self):
        for words in ["color", "keyboard"], ["set", "keyboard_color"]:
            for text, stored in ACCEPTED.items():
                self.ask(*words, text)
                self.assertEqual(self.settings(), {"keyboard_color": stored}, text)

    def test_every_other_text_is_refused(self):
        for words, text in itertools.product((["color", "keyboard"], ["set", "keyboard_color"]), REJECTED):
            with self.subTest(text):
                self.refusal(2, *words, "--", text)
        self.assertIsNone(self.settings())

    def test_alpha_is_shown_if_it_is_not_full(self):
        self.ask("color", "nc", "123456:0.5")
        self.assertEqual(self.ask("color", "nc"), "#123456:0.500000\n")
        self.assertEqual(self.ask_json("color", "nc"), {"element": "nc", "color": "#123456", "alpha": 0.5})

    def test_without_a_stored_color_the_fallback_is_shown(self):
        for options, _, elements in self.scopes:
            for element in elements:
                self.assertEqual(self.ask(*options, "color", element), "#de3027\n")
                self.assertEqual(self.ask(*options, "get", f"{element}_color"), "#de3027\n")

    def test_a_stored_value_that_is_not_a_color_shows_the_fallback(self):
        for value in "purple", "", 7, True, ["#123456"], {"a": "#123456"}, b"#123456":
            self.store({"keyboard_color": value, "keyboard_color_type": 2})
            self.assertEqual(self.ask("color", "keyboard"), "#de3027\n", value)
            self.assertEqual(self.ask("get", "keyboard_color"), "#de3027\n", value)

    def test_a_following_element_shows_the_global_color_in_its_row_and_its_own_in_its_picker(self):
        self.store({"global_color": "#111111:1.000000", "keyboard_color": "#222222:1.000000"})
        self.assertEqual(self.ask("get", "keyboard_color"), "#111111:1.000000\n")
        self.assertEqual(self.ask("color", "keyboard"), "#222222\n")
        self.ask("type", "keyboard", "custom")
        self.assertEqual(self.ask("get", "keyboard_color"), "#222222:1.000000\n")

    def test_an_application_does_not_inherit_system_colors(self):
        self.store({"nc_color": "#222222:1.000000", "nc_color_type": 2})
        self.assertEqual(self.ask("--app", APP, "color", "nc"), "#de3027\n")
        self.assertEqual(self.ask("--app", APP, "get", "nc_color"), "#de3027\n")

    def test_setting_a_color_leaves_the_type_alone(self):
        self.ask("color", "keyboard", "abc")
        self.assertEqual(self.settings(), {"keyboard_color": "#aabbcc:1.000000"})


if __name__ == "__main__":
    main()
