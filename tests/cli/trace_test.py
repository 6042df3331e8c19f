#!/usr/bin/env python3
"""trace_test.py PRISMO2: PRISMO2_TRACE=1 shows the way from a tap to the file on standard error."""

import re

from device import APP, CHANGED, World, main

ON = {"PRISMO2_TRACE": "1"}
FILE = "/User/Library/Preferences/com.corvane.prismo2.plist"
LINE = re.compile(r"trace: +\d+\.\d ms  (?P<indentation>(?:  )*)(?P<step>\S.*)")


class Trace(World):
    def traced(self, *arguments, **options):
        """The answer of a command with the trace on, and the trace: the depth and the text of each step."""
        done = self.run_command(*arguments, environment=ON, **options)
        self.assertEqual(done.returncode, 0, done.stderr)
        steps = []
        for line in done.stderr.splitlines():
            match = LINE.fullmatch(line)
            self.assertTrue(match, line)
            steps.append((len(match["indentation"]) // 2, match["step"]))
        return done.stdout, steps

    def assert_in_order(self, steps, expected):
        left = iter(steps)
        for step in expected:
            self.assertTrue(any(found == step for found in left), (step, steps))

    def test_set_is_followed_to_the_file(self):
        answer, steps = self.traced("set", "enabled", "off", "--json")
        self.assertEqual(answer, '{"key":"enabled","value":false}\n')
        self.assert_in_order(steps, [
            (0, 'command ["set", "enabled", "off", "--json"] from prismo2'),
            (1, 'message setPreferenceValue:specifier:(false, PSSpecifier "Prismo Enabled") to '
                'Prismo2PrefsListController (listed by PSViewController) from row setter'),
            (2, f'effect write {{path="{FILE}"}} from Device::writePropertyList'),
            (2, f'effect post {{name="{CHANGED}"}} from Device::postNotification')])
        self.assertIs(self.settings()["enabled"], False)

    def test_tap_is_followed_through_the_notification(self):
        answer, steps = self.traced("drive", "--virtual-time", input="tap 'Prismo Enabled'\nwait 1\n")
        self.assertEqual(answer, '{"ok":true}\n' * 2)
        self.assert_in_order(steps, [
            (1, 'script ["tap", "Prismo Enabled"] from DriveSession::play'),
            (2, 'tap PSSpecifier "Prismo Enabled" on Prismo2PrefsListController from PSListController::tapRow'),
            (3, 'message setPreferenceValue:specifier:(false, PSSpecifier "Prismo Enabled") to '
                'Prismo2PrefsListController (listed by PSViewController) from row setter'),
            (4, f'effect write {{path="{FILE}"}} from Device::writePropertyList'),
            (4, f'effect post {{name="{CHANGED}"}} from Device::postNotification')])
        [reload] = [index for index, (_, step) in enumerate(steps) if step.startswith("effect reload")]
        depth, _ = steps[reload]
        self.assertIn((depth - 1, f'notification "{CHANGED}" to Prismo2PrefsListController from CFNotificationCenter'),
                      steps[:reload])

    def test_only_1_turns_it_on(self):
        for value in "", "0", "yes":
            done = self.run_command("get", "enabled", environment={"PRISMO2_TRACE": value})
            self.assertEqual((done.stdout, done.stderr), ("true\n", ""), value)

    def test_standard_output_is_the_same(self):
        self.install(APP, "Example")
        for arguments in ["rows", "--json"], ["get", "keyboard_color"], ["--dry-run", "set", "enabled", "off"]:
            self.assertEqual(self.traced(*arguments)[0], self.ask(*arguments))

    def test_words_cannot_control_the_terminal(self):
        _, steps = self.traced("--app", "a\x1b]0;b\x07\nc", "rows")
        self.assertEqual(steps[0], (0, 'command ["--app", "a?]0;b??c", "rows"] from prismo2'))


if __name__ == "__main__":
    main()
