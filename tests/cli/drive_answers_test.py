#!/usr/bin/env python3
"""drive_answers_test.py PRISMO2: `drive` on what appears over a page, on the device around it, and on the kit."""

import plistlib

from device import APP, CHANGED, World, main

SHARE_TEXT = "#Prismo2 by @quillmoth customizes color throughout all of my apps and more!"
FILE = "/User/Library/Preferences/com.corvane.prismo2.plist"
WRITE = {"kind": "write", "path": FILE}
POST = {"kind": "post", "name": CHANGED}
QUERY = {"kind": "task", "path": "/bin/sh", "argv": ["/bin/sh", "-c", "dpkg -s com.corvane.prismo2 | grep 'Version'"]}
RELOAD = {"kind": "reload", "name": "Prismo2PrefsListController"}
REBUILD = [QUERY, RELOAD]


class Answers(World):
    def setUp(self):
        super().setUp()
        self.install(APP, "Example")

    def states(self, *lines, dry=False, code=0):
        """What each `state` of the script reports."""
        answers = (self.play_dry if dry else self.play)(*lines, code=code)
        return [answer for answer in answers if "stack" in answer]

    def effects(self, *lines, code=0):
        """The effects of the last line in a dry run, after the page is built."""
        return self.play_dry("rows", *lines[:-1], "effects", lines[-1], "effects", code=code)[-1]["effects"]


class State(Answers):
    def test_page_just_opened(self):
        state = self.states("state")[0]
        button = state["navigationBar"].pop("rightButton")
        self.assertEqual(set(button), {"image", "backgroundImage", "shareText"})
        self.assertEqual((button["backgroundImage"], button["shareText"]), ([20, 20], SHARE_TEXT))
        alert = state.pop("statusAlert")
        self.assertEqual((alert["attached"], alert["alpha"]), (False, 0))
        self.assertEqual(state, {
            "ok": True, "stack": ["Prismo2PrefsListController"], "title": "Prismo 2",
            "scope": {"inApp": False, "app": None},
            "navigationBar": {"tint": None, "barTint": None, "titleColor": None}, "windowLevel": 0, "alerts": [],
            "picker": None, "compose": None})

    def test_banner_from_the_change_to_its_end(self):
        shown, still, gone = self.states("set enabled off", "wait 1", "state", "wait 4", "state", "wait 3", "state")
        self.assertEqual(shown["statusAlert"], {
            "hidden": False, "attached": True, "alpha": 1, "frame": [0, 0, 320, 20],
            "title": "Prismo 2 – Tap to Respring?",
            "titleColor": "#ffffffff", "backgroundColor": "#0075ffe6", "font": {"size": 12, "bold": True}})
        self.assertGreater(shown["windowLevel"], 0)
        self.assertEqual(still, shown)
        self.assertEqual((gone["statusAlert"]["attached"], gone["statusAlert"]["alpha"], gone["windowLevel"]),
                         (False, 0, 0))

    def test_change_by_another_process(self):
        before, after = self.states("state", f"post {CHANGED}", "wait 1", "state")
        self.assertFalse(before["statusAlert"]["attached"])
        self.assertTrue(after["statusAlert"]["attached"])
        self.assertFalse(self.states("post a.b", "wait 1", "state")[0]["statusAlert"]["attached"])

    def test_rotated_screen(self):
        state = self.states("rotate 480 320", "set enabled off", "wait 1", "state")[0]
        self.assertEqual(state["statusAlert"]["frame"], [0, 0, 480, 20])

    def test_picker(self):
        self.store({"global_color": "#336699:0.500000"})
        opened, picked = self.states("tap 'Global Color'", "state", "pick abc", "state")
        self.assertEqual(opened["picker"], {"color": "#33669980", "alpha": 0.5, "showsAlpha": False})
        self.assertIsNone(picked["picker"])
        self.assertEqual(self.settings(), {"global_color": "#aabbcc:1.000000"})

    def test_canceled_picker(self):
        self.assertIsNone(self.states("tap 'Global Color'", "cancel", "state")[0]["picker"])
        self.assertIsNone(self.settings())

    def test_tinted_bar(self):
        tinted, untinted = self.states("tint '#112233'", "state", "untint", "state")
        self.assertEqual(tinted["navigationBar"]["tint"], "#112233ff")
        self.assertIsNone(untinted["navigationBar"]["tint"])

    def test_compose_sheet(self):
        for end in "send", "dismiss":
            opened, ended = self.states("share", "state", end, "state", dry=True)
            self.assertEqual(opened["compose"], {"service": "Twitter", "text": SHARE_TEXT})
            self.assertIsNone(ended["compose"])

    def test_a_page_without_a_right_button_has_nothing_to_share(self):
        answers = self.play("tap 'NC Enabled'", "state", "share", code=3)
        self.assertIsNone(answers[1]["navigationBar"]["rightButton"])
        self.assertFalse(answers[2]["ok"])

    def test_alerts(self):
        asked, refused = self.states("accounts refused", "follow quillmoth --title T --message M", "state", "answer 1",
                                     "wait 1", "state", dry=True)
        self.assertEqual(len(asked["alerts"]), 1)
        self.assertEqual((asked["alerts"][0]["title"], asked["alerts"][0]["message"]), ("T", "M"))
        self.assertEqual(len(asked["alerts"][0]["buttons"]), 2)
        self.assertEqual(set(asked["alerts"][0]), {"title", "message", "buttons", "tag"})
        self.assertNotEqual(refused["alerts"], asked["alerts"])

    def test_only_existing_alert_buttons_can_be_tapped(self):
        answers = self.play_dry("follow quillmoth", "answer 2", "answer 0", "answer 0", code=3)
        self.assertEqual([answer["ok"] for answer in answers], [True, False, True, False])


class Effects(Answers):
    def test_a_change_writes_then_posts_then_rebuilds(self):
        self.assertEqual(self.effects("tap enabled"), [WRITE, POST, *REBUILD])
        self.assertEqual(self.effects("tap 'NC Enabled'", "choose Custom"), [WRITE, POST, *REBUILD])
        self.assertEqual(self.effects("tap clearIconColorCache"), [WRITE, POST, *REBUILD])
        self.assertEqual(self.effects("tap 'Global Color'", "pick abc:0.5"),
                         [WRITE, POST | {"object": "#aabbcc:0.500000"}, *REBUILD])

    def test_an_application_switch_rebuilds_before_it_posts(self):
        choose = ["set Scope Application", "tap currentAppCell", f"select {APP}"]
        self.assertEqual(self.effects(*choose, "tap scope_enabled"), [WRITE, *REBUILD, POST, *REBUILD])

    def test_a_change_by_another_process_rebuilds(self):
        self.assertEqual(self.effects(f"post {CHANGED}"), REBUILD)
        self.assertEqual(self.effects("post a.b"), [])

    def test_changing_the_scope_rebuilds_and_writes_nothing(self):
        self.assertEqual(self.effects("set Scope Application"), [RELOAD])
        self.assertEqual(self.effects("set Scope Application", "tap currentAppCell", f"select {APP}"), REBUILD)

    def test_each_effect_is_reported_once(self):
        self.assertEqual(self.play_dry("tap enabled", "effects", "effects")[-1]["effects"], [])

    def test_real_effects_are_reported_too(self):
        answers = self.play("rows", "effects", "set enabled off", "effects")
        self.assertEqual(answers[-1]["effects"][:2], [WRITE, POST])
        self.assertEqual(self.settings(), {"enabled": False})

    def test_a_tapped_banner_restarts_the_interface(self):
        spawn = {"kind": "spawn", "path": "/usr/bin/killall", "argv": ["killall", "-9", "backboardd"],
                 "environment": []}
        self.assertEqual(self.effects("tap enabled", "wait 1", "banner"), [spawn])


class Kit(Answers):
    def opened(self, url, accepted):
        return {"kind": "openURL", "url": url, "accepted": accepted}

    def asked(self, url, accepted):
        return {"kind": "canOpenURL", "url": url, "accepted": accepted}

    def test_the_related_package_is_opened(self):
        url = "cydia://package/com.corvane.splashtoner"
        self.assertEqual(self.effects("tap splashtoner"), [self.opened(url, False)])
        self.assertEqual(self.effects("handlers cydia", "tap splashtoner"), [self.opened(url, True)])

    def test_a_profile_is_opened_by_the_first_application_that_can(self):
        effects = self.effects("handlers twitterrific twitter", "profile quillmoth")
        self.assertEqual(effects[:2], [self.asked(effects[0]["url"], False), self.asked(effects[1]["url"], True)])
        self.assertTrue(effects[0]["url"].startswith("tweetbot:") and effects[1]["url"].startswith("twitterrific:"))
        self.assertEqual((len(effects), effects[2]["kind"], effects[2]["accepted"]), (3, "openURL", True))
        self.assertIn("quillmoth", effects[2]["url"])

    def test_results_are_reported(self):
        self.assertTrue(self.play_dry("handlers mailto twitter", "mail a@b.c")[-1]["result"])
        self.assertFalse(self.play_dry("mail a@b.c")[-1]["result"])
        self.assertTrue(self.play_dry("handlers twitter", "profile quillmoth")[-1]["result"])
        self.assertEqual(self.play_dry("kill SpringBoard")[-1]["result"], 0)
        self.assertNotIn("result", self.play_dry("tint abc")[-1])

    def test_kill_sends_the_signal_to_a_process_by_name(self):
        told = [effect["argv"] for effect in self.play_dry("kill SpringBoard TERM", "kill a 9", "kill 'b c'",
                                                           "effects")[-1]["effects"] if effect["kind"] == "spawn"]
        self.assertEqual(told[:2], [["killall", "-TERM", "SpringBoard"], ["killall", "-9", "a"]])
        self.assertEqual(told[2][-1], "b c")

    def test_following_asks_the_device_for_its_accounts(self):
        effects = self.effects("accounts granted one", "follow quillmoth", "answer 1")
        self.assertEqual([(effect["kind"], effect["account"], effect["method"]) for effect in effects],
                         [("request", "one", "POST")])
        self.assertEqual(effects[0]["parameters"]["screen_name"], "quillmoth")
        self.assertIn("friendships/create", effects[0]["url"])
        self.assertEqual(self.effects("accounts refused one", "follow quillmoth", "answer 1"), [])
        self.assertEqual(self.effects("accounts granted one", "follow quillmoth", "answer 0"), [])

    def test_device_accounts_arrive_before_virtual_time_moves(self):
        accounts = self.root / "var/mobile/Library/Accounts/Prismo2Accounts.plist"
        accounts.parent.mkdir()
        secrets = dict.fromkeys(["consumerKey", "consumerSecret", "token", "tokenSecret"], "x")
        accounts.write_bytes(plistlib.dumps({"accounts": [{"identifier": name, "username": name} | secrets
                                                          for name in ("amy", "zoe")]}))
        accounts.chmod(0o600)
        for _ in range(10):
            states = self.states("follow bob", "answer 1", "state", "wait 5", "state")
            self.assertEqual([[alert["buttons"] for alert in state["alerts"]] for state in states],
                             [[["All!", "amy", "zoe"]]] * 2)

    def test_the_world_can_be_made_up_only_in_a_dry_run(self):
        for line in "handlers cydia", "handlers", "accounts granted", "accounts refused a":
            self.assertIn("--dry-run", self.play(line, code=2)[0]["error"])
            self.assertTrue(self.play_dry(line)[0]["ok"])


if __name__ == "__main__":
    main()
