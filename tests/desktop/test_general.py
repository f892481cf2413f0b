"""The General page: the exact bytes that each control writes, and the requests to the agent."""

from harness.case import DesktopCase
from harness.login import LoginJobs


class LaunchAtLogin(DesktopCase):
    SWITCH = "Launch at Login"
    UNIT = "com.vantle.agent.service"
    LOADING = ["--user daemon-reload", f"--user start {UNIT}"]

    @classmethod
    def setUpClass(cls):
        cls.jobs = LoginJobs(cls.desktop.folder / "login")

    def setUp(self):
        super().setUp()
        self.jobs.reset()

    def install_job(self):
        self.write(f".config/systemd/user/{self.UNIT}", "[Service]\nExecStart=/bin/true\n")

    def test_on_loads_the_job_and_off_unloads_it(self):
        self.install_job()
        program = self.start()
        switch = program.click("check box", self.SWITCH)
        self.expect(lambda: switch.has("checked"), "the switch does not turn on")
        program.click_on(switch)
        self.expect(lambda: not switch.has("checked"), "the switch does not turn off")
        self.assertEqual(self.jobs.calls, [*self.LOADING, f"--user enable {self.UNIT}", f"--user stop {self.UNIT}"])
        self.finish(program)
        self.assertEqual(self.agent.requests, [])

    def test_the_switch_is_on_at_the_start_if_the_job_is_loaded(self):
        self.jobs.state = "active"
        self.assertTrue(self.start().find("check box", self.SWITCH).has("checked"))
        self.assertEqual(self.jobs.calls, [])

    def test_a_job_that_cannot_be_loaded_leaves_the_switch_off(self):
        self.install_job()
        self.jobs.fail()
        program = self.start()
        switch = program.click("check box", self.SWITCH)
        self.expect(lambda: self.jobs.calls == [*self.LOADING, f"--user disable {self.UNIT}"],
                    lambda: f"the calls of the tool are {self.jobs.calls}")
        self.expect(lambda: (switch, False) in self.desktop.accessibility.switched,
                    "the switch does not report that it is off again")
        self.expect(lambda: f"{self.SWITCH} could not be changed" in self.desktop.accessibility.announced,
                    lambda: f"the failure is not among the announcements {self.desktop.accessibility.announced}")
        program.click("check box", "Marketing Recording Mode")
        self.expect_requests("/settings/reload-green-screen")
        self.assertFalse(switch.has("checked"))

    def test_a_slow_job_keeps_only_its_own_switch_busy(self):
        self.install_job()
        self.jobs.block()
        program = self.start()
        switch = program.focus("check box", self.SWITCH)
        program.press("space")
        self.expect(lambda: switch.has("busy") and not switch.has("sensitive"), "the switch is not busy")
        self.assertTrue(switch.has("focused"))
        program.press("space")
        program.click("check box", "Marketing Recording Mode")
        self.expect_requests("/settings/reload-green-screen")
        self.assertFalse(switch.has("checked"))
        self.jobs.unblock()
        self.expect(lambda: switch.has("checked") and switch.has("sensitive"), "the switch does not turn on")
        self.assertEqual(self.jobs.calls, [*self.LOADING, f"--user enable {self.UNIT}"])

    def test_closing_during_a_change_leaves_the_change_to_the_service_manager(self):
        self.install_job()
        self.jobs.block()
        program = self.start()
        program.click("check box", self.SWITCH)
        self.expect(lambda: self.jobs.calls == self.LOADING, lambda: f"the calls of the tool are {self.jobs.calls}")
        program.press("ctrl+w")
        self.expect_end(program)
        (remaining,) = self.jobs.calls[2:]
        self.assertRegex(remaining, "^--user --no-block .*ExecStartPost=/[^ ]+/systemctl --user enable")
        self.assertTrue(remaining.endswith(f"/systemctl --user start {self.UNIT}"), remaining)
        self.jobs.unblock()
        self.expect(lambda: len(self.jobs.finished_calls) == len(self.jobs.calls),
                    "a call of the tool does not end by itself")

    def test_without_a_job_nothing_is_run_and_the_switch_stays_off(self):
        program = self.start()
        switch = program.click("check box", self.SWITCH)
        program.click("check box", "Marketing Recording Mode")
        self.expect_requests("/settings/reload-green-screen")
        self.assertFalse(switch.has("checked"))
        self.assertEqual(self.jobs.calls, [])


class Typeface(DesktopCase):
    def test_choosing_system_writes_the_file_and_tells_the_agent(self):
        self.start().pick("Typeface", "System (SF Pro)")
        self.expect_file(".vantle/typeface.json", '{\n  "name" : "system"\n}')
        self.expect_requests("/settings/reload-typeface")

    def test_choosing_jetbrains_mono_writes_the_file_and_tells_the_agent(self):
        self.write(".vantle/typeface.json", '{"name":"system"}')
        self.start().pick("Typeface", "JetBrains Mono")
        self.expect_file(".vantle/typeface.json", '{\n  "name" : "jetbrains-mono"\n}')
        self.expect_requests("/settings/reload-typeface")

    def test_choosing_the_current_entry_writes_nothing_and_sends_no_request(self):
        program = self.start()
        program.pick("Typeface", "JetBrains Mono")
        program.pick("Terminal", "Vantle Terminal")
        self.expect_requests("/settings/reload-terminal-backend")
        self.expect_no_file(".vantle/typeface.json")
        self.finish(program)


class Terminal(DesktopCase):
    def test_choosing_vantle_terminal_writes_the_file_and_tells_the_agent(self):
        self.start().pick("Terminal", "Vantle Terminal")
        self.expect_file(".vantle/terminal-backend.json", '{\n  "backend" : "vantle-term"\n}')
        self.expect_requests("/settings/reload-terminal-backend")

    def test_choosing_iterm_writes_the_file_and_tells_the_agent(self):
        self.write(".vantle/terminal-backend.json", '{"backend":"vantle-term"}')
        self.start().pick("Terminal", "iTerm2")
        self.expect_file(".vantle/terminal-backend.json", '{\n  "backend" : "iterm"\n}')
        self.expect_requests("/settings/reload-terminal-backend")


class Recording(DesktopCase):
    def test_each_flip_writes_the_file_and_tells_the_agent_once(self):
        program = self.start()
        switch = program.click("check box", "Marketing Recording Mode")
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : true\n}')
        self.expect(lambda: switch.has("checked"), "the switch does not turn on")
        program.click("check box", "Marketing Recording Mode")
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : false\n}')
        self.expect(lambda: not switch.has("checked"), "the switch does not turn off")
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")


class Updates(DesktopCase):
    def test_flipping_writes_the_file_and_sends_no_request(self):
        program = self.start()
        switch = program.find("check box", "Automatic Updates")
        self.assertTrue(switch.has("checked"))
        program.click_on(switch)
        self.expect_file(".vantle/updates.json", '{\n  "automatic" : false\n}')
        self.expect(lambda: not switch.has("checked"), "the switch does not turn off")
        self.finish(program)
        self.assertEqual(self.agent.requests, [])

    def test_the_manifest_address_is_kept_and_other_members_are_dropped(self):
        self.write(".vantle/updates.json", '{"automatic":false,"manifest_url":"https://v.example/m","x":1}')
        self.start().click("check box", "Automatic Updates")
        self.expect_file(".vantle/updates.json",
                         '{\n  "automatic" : true,\n  "manifest_url" : "https:\\/\\/v.example\\/m"\n}')

    def test_a_file_without_the_flag_loses_its_manifest_address(self):
        self.write(".vantle/updates.json", '{"manifest_url":"https://v.example/m"}')
        self.start().click("check box", "Automatic Updates")
        self.expect_file(".vantle/updates.json", '{\n  "automatic" : false\n}')
