"""The program beside an agent that is absent, silent, or talks nonsense: it works on, and ends at once."""

from harness.agent import Agent
from harness.case import DesktopCase

SWITCH = "Marketing Recording Mode"
FILE = ".vantle/green-screen.json"


class Agents(DesktopCase):
    def replace_agent(self, **options):
        self.agent.close()
        self.agent = Agent(**options) if options else None

    def flip_and_finish(self):
        program = self.start()
        program.click("check box", SWITCH)
        self.expect_file(FILE, '{\n  "enabled" : true\n}')
        program.click("check box", SWITCH)
        self.expect_file(FILE, '{\n  "enabled" : false\n}')
        self.finish(program)

    def test_absent(self):
        self.replace_agent()
        self.flip_and_finish()

    def test_silent(self):
        self.replace_agent(answer=None)
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_talking_nonsense(self):
        self.replace_agent(answer=b"\x00\xff nonsense\r\n" * 100)
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_refusing_with_an_error(self):
        self.replace_agent(answer=b"HTTP/1.1 500 Internal Server Error\r\nContent-Length: 0\r\n\r\n")
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_redirecting_is_not_followed(self):
        self.replace_agent(answer=b"HTTP/1.1 307 Temporary Redirect\r\nLocation: /elsewhere\r\n"
                                  b"Content-Length: 0\r\n\r\n")
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_restarted_between_two_changes(self):
        program = self.start()
        program.click("check box", SWITCH)
        self.expect_requests("/settings/reload-green-screen")
        self.replace_agent(answer=Agent.OK)
        program.click("check box", SWITCH)
        self.expect_requests("/settings/reload-green-screen")

    def test_a_proxy_never_sees_the_request(self):
        proxy = "http://127.0.0.1:9"
        program = self.start(environment={name: proxy for name in ("http_proxy", "HTTP_PROXY", "all_proxy")})
        program.click("check box", SWITCH)
        self.expect_requests("/settings/reload-green-screen")

    def test_a_change_in_the_instant_of_closing_still_reaches_it(self):
        program = self.start()
        program.click("check box", SWITCH)
        program.press("ctrl+w")
        self.assertEqual(program.ended(), 0)
        self.expect_requests("/settings/reload-green-screen")

    def test_silence_does_not_keep_the_program_for_long(self):
        self.replace_agent(answer=None)
        program = self.start()
        point = program.middle(program.click("check box", SWITCH))
        for _ in range(29):
            self.desktop.input.click(*point)
        self.expect(lambda: self.agent.requests, "the agent is told nothing")
        program.press("ctrl+w")
        self.assertEqual(program.ended(seconds=6), 0)
