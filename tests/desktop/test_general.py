"""The General page: what each control writes, byte for byte, and what the agent is told."""

from harness.case import DesktopCase


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

    def test_choosing_what_is_chosen_writes_and_tells_nothing(self):
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
        self.expect(lambda: switch.has("checked"))
        program.click("check box", "Marketing Recording Mode")
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : false\n}')
        self.expect(lambda: not switch.has("checked"))
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")


class Updates(DesktopCase):
    def test_flipping_writes_the_file_and_tells_nobody(self):
        program = self.start()
        switch = program.find("check box", "Automatic Updates")
        self.assertTrue(switch.has("checked"))
        program.click_on(switch)
        self.expect_file(".vantle/updates.json", '{\n  "automatic" : false\n}')
        self.expect(lambda: not switch.has("checked"))
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
