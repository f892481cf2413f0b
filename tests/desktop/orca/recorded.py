"""A speech server for Orca that prints texts instead of speaking them."""

from orca import speechserver


def write(kind, text=""):
    print(kind, text.replace("\n", " "), flush=True)


class SpeechServer(speechserver.SpeechServer):
    """Prints a line for each utterance, and for each time that speech is stopped."""

    @staticmethod
    def getFactoryName():
        return "recorded"

    @staticmethod
    def getSpeechServers():
        return [SpeechServer()]

    @staticmethod
    def getSpeechServer(_information=None):
        return SpeechServer()

    @staticmethod
    def shutdownActiveServers():
        pass

    def getInfo(self):
        return ["recorded", "recorded"]

    def getVoiceFamilies(self):
        return []

    def speak(self, text=None, acss=None, interrupt=True):
        if text:
            write("say", text)

    def speakCharacter(self, character, acss=None):
        write("say", character)

    def speakKeyEvent(self, event, acss=None):
        write("say", event.getKeyName())

    def sayAll(self, utteranceIterator, progressCallback):
        for context, _voice in utteranceIterator:
            write("say", context.utterance)

    def stop(self):
        write("stop")

    def updateCapitalizationStyle(self):
        pass

    def updatePunctuationLevel(self):
        pass

    def shutdown(self):
        pass

    def reset(self, text=None, acss=None):
        pass
