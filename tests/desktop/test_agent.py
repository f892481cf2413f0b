"""The program with an agent that is absent, silent or faulty: it continues to work, and ends at once."""

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

    def test_works_without_an_agent(self):
        self.replace_agent()
        self.flip_and_finish()

    def test_works_with_a_silent_agent(self):
        self.replace_agent(answer=None)
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_works_with_an_agent_that_sends_garbage(self):
        self.replace_agent(answer=b"\x00\xff nonsense\r\n" * 100)
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_works_with_an_agent_that_answers_with_an_error(self):
        self.replace_agent(answer=b"HTTP/1.1 500 Internal Server Error\r\nContent-Length: 0\r\n\r\n")
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_does_not_follow_a_redirect(self):
        self.replace_agent(answer=b"HTTP/1.1 307 Temporary Redirect\r\nLocation: /elsewhere\r\n"
                                  b"Content-Length: 0\r\n\r\n")
        self.flip_and_finish()
        self.expect_requests("/settings/reload-green-screen", "/settings/reload-green-screen")

    def test_announces_the_next_change_to_a_restarted_agent(self):
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

    def test_announces_a_change_made_just_before_closing(self):
        program = self.start()
        program.click("check box", SWITCH)
        program.press("ctrl+w")
        self.assertEqual(program.wait(), 0)
        self.expect_requests("/settings/reload-green-screen")

    def test_a_silent_agent_delays_the_end_by_a_few_seconds_at_most(self):
        self.replace_agent(answer=None)
        program = self.start()
        point = program.middle(program.click("check box", SWITCH))
        for _ in range(29):
            self.desktop.input.click(*point)
        self.expect(lambda: self.agent.requests, "the agent receives no request")
        program.press("ctrl+w")
        self.assertEqual(program.wait(seconds=6), 0)
