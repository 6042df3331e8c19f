#!/usr/bin/env python3
"""rows_test.py PRISMO2: `rows --json` prints every field of every row, in the page's three scopes."""

import time

from device import APP, CHANGED, ELEMENTS, VERSION, World, main

FALLBACK = "#de3027"
THREE_TYPES = ["Global", "Disabled", "Custom"]
TWO_TYPES = ["Global", "Icon Color"]
PAIR = {"setter": "setPreferenceValue:specifier:", "getter": "readPreferenceValue:"}


def row(cell, name, properties=None, **fields):
    return {"cell": cell, "name": name, "identifier": None, "setter": None, "getter": None, "action": None,
            "detail": None, "value": None, "enabled": True, "choices": [], "properties": properties or {},
            "swatch": None} | fields


def choices(titles, values=(0, 1, 2)):
    return [{"value": value, "title": title, "shortTitle": title} for value, title in zip(values, titles)]


def group(name, footer=None):
    return row("group", name, {} if footer is None else {"footerText": footer})


def segment(in_app):
    return row("segment", "Scope", setter="setSegmentPreferenceValue:specifier:", getter="readSegmentPreferenceValue:",
               value=in_app, choices=choices(["System", "Application"], [False, True]))


def switch(name, key, default, value):
    return row("switch", name, {"key": key, "default": default, "PostNotification": CHANGED}, identifier=key,
               value=value, **PAIR)


def color(name, key, swatch=FALLBACK, **properties):
    return row("link", name,
               {"prismo_key": key, "prismo_dc": FALLBACK, "cellClass": "PrismoColorCell", "PostNotification": CHANGED,
                "NotificationListener": CHANGED} | properties,
               action="chooseColor:", swatch=swatch, enabled=properties.get("enabled", True), **PAIR)


def following(key, swatch=FALLBACK):
    return color("<Using Global Color>", key, swatch, enabled=False)


def color_type(title, value, detail="PrismoTypeItemsController", titles=THREE_TYPES):
    return row("linkList", f"{title} Enabled",
               {"key": f"{title.lower()}_color_type", "default": 0, "PostNotification": CHANGED}, value=value,
               detail=detail, choices=choices(titles), **PAIR)


def global_group(prefix, value):
    return [group("Global", "Main color that is used throughout Prismo."),
            color("Global Color", prefix + "global_color"),
            color_type("Global", value, "PrismoGlobalTypeItemsController", TWO_TYPES)]


def following_group(title, prefix, value):
    return [group(title), following(f"{prefix}{title.lower()}_color"), color_type(title, value)]


def more():
    return [group("More"),
            row("button", "Change Boot Logo Color (Cydia)", identifier="splashtoner", action="splashtoner"),
            row("button", "Clear Icon Color Cache", identifier="clearIconColorCache", action="clearIconColorCache")]


def footer():
    year = time.gmtime().tm_year
    return row("group", "", {"footerText": f"© quillmoth 2016 - {year}\n Version: {VERSION}\n", "footerAlignment": "1"})


def groups(titles, prefix, value):
    return [each for title in titles for each in following_group(title, prefix, value)]


SYSTEM_GROUPS = ["Keyboard", "StatusBar", "SMS", "NC", "CC", "Volume", "Folder"]


def system_page():
    return [
        group("Scope", "All settings below are system-wide."), segment(False),
        switch("Prismo Enabled", "enabled", True, True),
        *global_group("", 0), *groups(SYSTEM_GROUPS, "", 0), *more(),
        group("", "Override NC, CC, and Volume HUD with the now playing artwork average color."),
        switch("Album Art Color for NC|CC|HUD", "use_album_art", False, False),
        footer(),
    ]


def unchosen_page():
    return [
        group("Scope", ""), segment(True), group("Selected App", "Please select an app to change settings."),
        row("link", "No App Selected", identifier="currentAppCell", detail="Prismo2AppScope"),
    ]


def application_page(name="Example"):
    return [
        group("Scope", ""), segment(True), group("Selected App", f"All settings below only effect the {name} app."),
        row("link", name, {"iconImage": {"image": [59, 59]}, "height": 100}, identifier="currentAppCell",
            detail="Prismo2AppScope"),
        switch(f"Custom {name} Settings Enabled", "scope_enabled", False, None),
        switch("Prismo Enabled", "enabled", True, None),
        *global_group(APP + "_", None), *groups(SYSTEM_GROUPS[:-1], APP + "_", None), *more(), footer(),
    ]


class Rows(World):
    def setUp(self):
        super().setUp()
        self.install(APP, "Example", icon=120)

    def page(self, expected, scope, *options):
        document = self.ask_json(*options, "rows")
        rows = document.pop("rows")
        self.assertEqual(document, {"page": "Prismo 2", "class": "Prismo2PrefsListController", "scope": scope})
        self.assertEqual([each.pop("index") for each in rows], list(range(len(rows))))
        for index, (told, wanted) in enumerate(zip(rows, expected)):
            self.assertEqual(list(told), list(wanted), "the fields in their order")
            self.assertEqual(told, wanted, f"row {index}")
        self.assertEqual(len(rows), len(expected))

    def named(self, name, *options):
        return next(each for each in self.rows(*options) if each["name"] == name)

    def row_of(self, key, *options):
        return next(each for each in self.rows(*options)
                    if key in (each["properties"].get("key"), each["properties"].get("prismo_key")))

    # The golden pages

    def test_system_scope(self):
        self.page(system_page(), {"inApp": False, "app": None})

    def test_application_scope_without_an_application(self):
        self.page(unchosen_page(), {"inApp": True, "app": None}, "--app", "")

    def test_application_scope_with_an_application(self):
        self.page(application_page(), {"inApp": True, "app": APP}, "--app", APP)

    def test_a_choice_in_the_segment_is_a_boolean(self):
        self.assertIs(self.named("Prismo Enabled")["value"], True)
        values = [choice["value"] for choice in self.rows()[1]["choices"]]
        self.assertTrue(values[0] is False and values[1] is True)

    def test_an_application_without_an_icon_has_a_row_without_one(self):
        self.install("com.example.plain", "Plain")
        self.assertNotIn("image",
                         self.named("Plain", "--app", "com.example.plain")["properties"].get("iconImage") or {})

    def test_an_unknown_version_leaves_the_copyright_line(self):
        self.tool("dpkg", "#!/bin/sh\necho 'no such package' >&2\nexit 1\n")
        year = time.gmtime().tm_year
        self.assertEqual(self.rows()[-1]["properties"]["footerText"], f"© quillmoth 2016 - {year}\n ")

    # After changes

    def test_values_come_from_the_file(self):
        self.store({"enabled": False, "use_album_art": True, "keyboard_color_type": 1})
        self.assertIs(self.row_of("enabled")["value"], False)
        self.assertIs(self.row_of("use_album_art")["value"], True)
        self.assertEqual(self.row_of("keyboard_color_type")["value"], 1)

    def test_a_custom_element_has_its_own_name_and_swatch(self):
        names = dict(zip(ELEMENTS, ["Global Color", "Keyboard Color", "StatusBar Color", "SMS Color",
                                    "Notification Center Color", "Control Center Color", "Volume HUD Color",
                                    "Folder Color"]))
        for index, element in enumerate(ELEMENTS):
            self.ask("set", f"{element}_color", f"#0000F{index}")
            if element != "global":
                self.ask("set", f"{element}_color_type", "2")
        rows = {each["properties"].get("prismo_key"): each for each in self.rows()}
        for index, element in enumerate(ELEMENTS):
            told = rows[f"{element}_color"]
            self.assertEqual((told["name"], told["enabled"], told["swatch"]), (names[element], True, f"#0000f{index}"))

    def test_a_disabled_element_keeps_its_name_and_cannot_be_tapped(self):
        self.ask("set", "nc_color_type", "disabled")
        told = self.row_of("nc_color")
        self.assertEqual((told["name"], told["enabled"]), ("Notification Center Color", False))

    def test_a_following_row_shows_the_global_color(self):
        self.ask("set", "global_color", "123456")
        self.assertEqual(self.row_of("keyboard_color")["swatch"], "#123456")

    def test_in_an_application_a_following_row_shows_the_system_wide_global_color(self):
        self.ask("set", "global_color", "123456")
        self.ask("--app", APP, "set", "global_color", "654321")
        self.assertEqual(self.row_of(APP + "_global_color", "--app", APP)["swatch"], "#654321")
        self.assertEqual(self.row_of(APP + "_keyboard_color", "--app", APP)["swatch"], "#123456")

    def test_an_application_without_a_value_shows_the_system_wide_one(self):
        self.store({"enabled": False, "keyboard_color_type": 2})
        self.assertIs(self.row_of("enabled", "--app", APP)["value"], False)
        told = self.row_of(APP + "_keyboard_color", "--app", APP)
        self.assertEqual((told["name"], told["enabled"]), ("Keyboard Color", True))

    def test_settings_switched_off_for_an_application_disable_its_groups(self):
        self.ask("--app", APP, "set", "scope_enabled", "off")
        rows = self.rows("--app", APP)
        self.assertEqual([each["index"] for each in rows if not each["enabled"]], list(range(6, 27)))
        self.ask("--app", APP, "set", "scope_enabled", "on")
        disabled = [each["name"] for each in self.rows("--app", APP) if not each["enabled"]]
        self.assertEqual(set(disabled), {"<Using Global Color>"})


if __name__ == "__main__":
    main()
