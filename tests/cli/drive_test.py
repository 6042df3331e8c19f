#!/usr/bin/env python3
"""drive_test.py PRISMO2: how `drive` reads its lines, and what taps do to the pages."""

import json
import time

from device import APP, SETTINGS, World, main


class Drive(World):
    def setUp(self):
        super().setUp()
        self.install(APP, "Example")

    def last(self, *lines, code=0):
        return self.play(*lines, code=code)[-1]

    def stack(self, *lines, code=0):
        return self.last(*lines, "state", code=code)["stack"]

    def error(self, code, *lines):
        """The error of the last line, the only one that fails."""
        answers = self.play(*lines, code=code)
        self.assertEqual([answer["ok"] for answer in answers], [True] * (len(lines) - 1) + [False])
        self.assertEqual(set(answers[-1]), {"ok", "error"})
        return answers[-1]["error"]


class Lines(Drive):
    def test_a_script_comes_from_a_file_or_standard_input(self):
        script = self.home / "script"
        script.write_text("set enabled off\nfile")
        answers = [json.loads(line) for line in self.ask("drive", str(script), "--virtual-time").splitlines()]
        self.assertEqual(answers, [{"ok": True}, {"ok": True, "file": {"enabled": False}}])

    def test_words_are_quoted_as_in_a_shell(self):
        for line in ("tap 'Keyboard Enabled'", 'tap "Keyboard Enabled"', r"tap Keyboard\ Enabled",
                     "tap Key'board 'Enabled",
                     "\ttap   'Keyboard'\" \"Enabled  ", 't"ap" "Keyboard Enabled"', "tap 'Keyboard Enabled'\r"):
            self.assertEqual(self.stack(line)[1:], ["PrismoTypeItemsController"], line)
        for quoted, name in (r'"a\"b\\c\$d\`e\f"', r'a"b\c$d`e\f'), (r"'a\b'", r"a\b"), (r"a\'b", "a'b"), ("''", ""):
            self.assertEqual(self.error(3, f"tap {quoted}"), f"no row '{name}'")

    def test_nothing_is_expanded(self):
        for word in "$HOME", "*", "~", "`id`", "$(id)", "a;b", "a|b", "{a,b}":
            self.assertEqual(self.error(3, f"tap {word}"), f"no row '{word}'")

    def test_comments_and_empty_lines_have_no_answer(self):
        self.assertEqual(self.play("# one", "", "   ", "\t# two", "set enabled off # three", "#"), [{"ok": True}])
        self.assertEqual(self.play("set enabled on #", "set enabled off\t#\tthree", "#3", " #3366ff"), [{"ok": True}] * 2)
        for word in "a#b", "#99", "#3366ff", "'#'", r"\#", "#comment":
            self.assertIn("no row '#" if word != "a#b" else "no row 'a#b'", self.error(3, f"tap {word} # comment"))

    def test_an_index_and_a_color_need_no_quotes(self):
        self.assertEqual(self.last("tap #2 # the master switch", "file")["file"], {"enabled": False})
        self.assertEqual(self.play("tap 'Global Color'", "pick #3366ff", "file")[-1]["file"],
                         {"enabled": False, "global_color": "#3366ff:1.000000"})

    def test_unreadable_lines_exit_with_2(self):
        for line in ("nonsense", "'open", '"open', "tap 'a\"", "tap a\\", "tap", "tap a b", "set enabled",
                     "set enabled on off",
                     "rows more", "choose", "select", "pick", "pick purple", "answer", "answer x", "answer -1", "wait",
                     "wait x", "wait -1", "wait nan", "wait inf", "post", "post a/b", "post ''", "rotate 1",
                     "rotate a b",
                     "rotate -1 5", "state more", "set Scope 2", "file more", "kill", "kill a b c", "tint", "tint purple", "follow",
                     "follow a --title", "follow a --other b", "profile", "mail", "tap Scope", "set 'Global Enabled' 1",
                     "set enabled maybe", "set Scope Elsewhere", "handlers x", "accounts granted", "''", "TAP enabled"):
            self.error(2, line)

    def test_wrong_arguments_get_a_usage_message(self):
        for line, usage in {"tap": "ROW", "set enabled": "ROW VALUE", "rows more": "no arguments",
                            "kill a b c": "PROCESS [SIGNAL]", "accounts": "granted|refused [NAME …]"}.items():
            self.assertEqual(self.error(2, line), f"'{line.split()[0]}' takes {usage}")

    def test_missing_things_exit_with_3(self):
        for line in ("tap nonsense", "tap '#99'", "tap '#'", "tap '#x'", "tap '#-1'", "tap '#0'", "set nonsense on",
                     "choose Custom", f"select {APP}", "pick abc", "cancel", "answer 0", "send", "dismiss", "banner",
                     "back", "tap Keyboard", "tap currentAppCell", "tap '<Using Global Color>'"):
            self.error(3, line)

    def test_all_lines_run_and_the_highest_code_counts(self):
        self.assertEqual([answer["ok"] for answer in self.play("nonsense", "back", "set enabled off", code=3)],
                         [False, False, True])
        self.assertEqual([answer["ok"] for answer in self.play("back", "nonsense", "file", code=3)],
                         [False, False, True])
        self.assertEqual(self.settings(), {"enabled": False})

    def test_a_line_is_answered_before_the_next_is_written(self):
        process = self.start_session()
        for line, answer in ("set enabled off", {"ok": True}), ("file", {"ok": True, "file": {"enabled": False}}):
            process.stdin.write(line + "\n")
            process.stdin.flush()
            self.assertEqual(json.loads(process.stdout.readline()), answer)

    def test_bytes_that_are_not_utf8_are_answered_in_utf8(self):
        done = self.run_command("drive", input="tap \udcff\udcfe\0x\n")
        self.assertEqual(done.returncode, 3)
        self.assertFalse(json.loads(done.stdout)["ok"])


class Clock(Drive):
    def test_waiting_takes_no_time_in_virtual_time(self):
        began = time.monotonic()
        for options in ["--virtual-time"], ["--virtual-time", "--dry-run"]:
            self.play("set enabled off", "wait 86400", "wait 3600", options=options)
        self.assertLess(time.monotonic() - began, 20)

    def test_waiting_takes_time_in_real_time(self):
        for options in [], ["--dry-run"]:
            began = time.monotonic()
            self.play("wait 0.3", options=options)
            self.assertGreaterEqual(time.monotonic() - began, 0.3)

    def test_a_day_is_the_longest_wait(self):
        self.error(2, "wait 86401")


class Rows(Drive):
    def test_rows_match_the_rows_command(self):
        answer = self.last("rows")
        self.assertTrue(answer.pop("ok"))
        self.assertEqual(answer, self.ask_json("rows"))

    def test_the_page_has_the_scope_of_the_command(self):
        answers = self.play("rows", options=["--virtual-time", "--app", APP])
        self.assertEqual(answers[0]["scope"], {"inApp": True, "app": APP})

    def test_a_chooser_page_has_rows_too(self):
        page = self.last("tap 'Global Enabled'", "rows")
        self.assertEqual((page["page"], page["class"]), ("Global Enabled", "PrismoGlobalTypeItemsController"))
        told = [(row["index"], row["cell"], row["name"], row["properties"].get("footerText"), row["choices"])
                for row in page["rows"]]
        choice = lambda value, title: [{"value": value, "title": title, "shortTitle": title}]
        self.assertEqual(told, [(0, "group", "", "Fallback to the global color.", []),
                                (1, "listItem", "Global", None, choice(0, "Global")),
                                (2, "group", "", "Use the average color of the current app's icon.", []),
                                (3, "listItem", "Icon Color", None, choice(1, "Icon Color"))])

    def test_an_application_cannot_be_tapped_like_a_row(self):
        for line in "tap Example", "choose Example", "set Example on":
            self.assertIn("'select ID'", self.error(3, "set Scope Application", "tap currentAppCell", line))

    def test_a_tap_toggles_a_switch(self):
        files = [answer["file"] for answer in self.play("tap enabled", "file", "tap enabled",
                                                        "file") if "file" in answer]
        self.assertEqual(files, [{"enabled": False}, {"enabled": True}])

    def test_a_tap_presses_a_button(self):
        self.store({"cached_icon_color_x": "#fff", "enabled": True})
        self.assertEqual(self.last("tap clearIconColorCache", "file")["file"], {"enabled": True})

    def test_a_tap_follows_a_link(self):
        self.assertEqual(self.stack("set Scope Application", "tap currentAppCell"),
                         ["Prismo2PrefsListController", "Prismo2AppScope"])

    def test_a_row_is_named_by_identifier_name_or_index(self):
        for row in "use_album_art", "'Album Art Color for NC|CC|HUD'", "'#31'", r"\#31":
            self.assertEqual(self.last("set enabled on", f"set {row} off", f"tap {row}", "file")["file"],
                             {"enabled": True, "use_album_art": True})

    def test_a_shared_name_means_the_first_row(self):
        self.store({"nc_color_type": 2, "cc_color_type": 1, "keyboard_color_type": 1, "statusbar_color_type": 1})
        self.assertIn("disabled", self.error(3, "tap '<Using Global Color>'"))
        self.assertTrue(self.last("set Scope true", "state")["scope"]["inApp"], "the segment, not its group")

    def test_a_segment_is_set_by_value_and_by_title(self):
        for value, in_app in (("Application", True), ("application", True), ("true", True), ("1", True),
                              ("System", False), ("false", False), ("0", False)):
            self.assertEqual(self.last(f"set Scope {value}", "state")["scope"], {"inApp": in_app, "app": None}, value)

    def test_a_switch_takes_every_word(self):
        for word in "true", "on", "yes", "1", "false", "off", "no", "0":
            self.assertEqual(self.last(f"set enabled {word}", "file")["file"],
                             {"enabled": word in ("true", "on", "yes", "1")})

    def test_a_choice_is_stored_and_the_chooser_stays(self):
        answers = self.play("tap 'NC Enabled'", "choose Custom", "file", "state")
        self.assertEqual(answers[2]["file"], {"nc_color_type": 2})
        self.assertEqual(answers[3]["stack"], ["Prismo2PrefsListController", "PrismoTypeItemsController"])
        self.error(3, "tap 'NC Enabled'", "choose 'Icon Color'")

    def test_an_application_is_selected(self):
        answers = self.play("set Scope Application", "tap currentAppCell", f"select {APP}", "state", "file")
        self.assertEqual(answers[3]["scope"], {"inApp": True, "app": APP})
        self.assertEqual(answers[3]["stack"], ["Prismo2PrefsListController"])
        self.assertIsNone(answers[4]["file"])
        self.error(3, "set Scope Application", "tap currentAppCell", "select com.not.installed")

    def test_the_picker_shows_its_applications_as_rows(self):
        self.install("com.example.bought", "Bought", store=True)
        page = self.last("set Scope Application", "tap currentAppCell", "rows")
        self.assertEqual((page["page"], page["class"], page["scope"]),
                         ("Select App", "Prismo2AppScope", {"inApp": True, "app": None}))
        self.assertEqual([(row["index"], row["cell"], row["name"], row["identifier"]) for row in page["rows"]],
                         [(0, "group", "System Applications", None), (1, "listItem", "Example", APP),
                          (2, "group", "User Applications", None), (3, "listItem", "Bought", "com.example.bought")])
        fields = set(self.last("rows")["rows"][0])
        for row in page["rows"]:
            self.assertEqual(set(row), fields)
        self.assertEqual(page["rows"][1]["choices"], [{"value": APP, "title": "Example", "shortTitle": "Example"}])

    def test_back_goes_back_one_page(self):
        self.assertEqual(self.stack("tap 'NC Enabled'", "back"), ["Prismo2PrefsListController"])

    def test_going_back_to_the_system_forgets_the_application(self):
        self.assertEqual(self.last("set Scope Application", "tap currentAppCell", f"select {APP}", "set Scope System",
                                   "set Scope Application", "state")["scope"], {"inApp": True, "app": None})

    def test_file_is_the_file_of_the_device(self):
        self.assertEqual(self.last("file"), {"ok": True, "file": None})
        self.store({"a": [1, 2.5, True, "x", b"\1"], "n": {}})
        self.assertEqual(self.last("file")["file"], {"a": [1, 2.5, True, "x", {"data": "01"}], "n": {}})
        self.assertTrue((self.root / SETTINGS).exists())


if __name__ == "__main__":
    main()
