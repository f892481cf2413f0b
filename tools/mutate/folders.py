"""The sources that can be mutated, and the test programs that cover them: the quickest first.
docs/mutation.md says which are left out."""

SOURCES = "VantleSettings/"

# Tests that are slow without optimisation run last, on the mutants that survive all others.
SLOW_TESTS = {
    "foundation_test": ["Json.CountsMoreElementsThanTheParserStores", "Json.Goes512ContainersDeepAndNoDeeper",
                        "Text.ComposesEveryScalarAsTheToolkitDoes", "Text.ComposesLongTextsInLinearTime",
                        "Text.ComposesOneLetterWithAMillionMarks"],
    "json_corpus_test": ["*"],
    "planning_projects_test": ["Manifest.ReadsBackWhatAGeneratorWrote",
                               "Manifest.EveryScalarJoinsASignAsUnicodeSays",
                               "Manifest.RandomTextsAreReadAsByTheStraightforwardReader",
                               "Manifest.HostileTextsAreReadInLinearTime",
                               "SessionMatching.GivesWhatTheStraightforwardDefinitionGives"],
    "platform_files_test": ["FileCopy.HasTheBytesOfAFileOfAnyLength"],
}

# For each name, the sources and the test programs that cover them.
FOLDERS = {
    "AgentBridge": [(["AgentBridge/*.cpp"], ["agent_bridge_test", "agent_port_test"])],
    "Foundation": [(["Foundation/Json*.cpp"], ["foundation_test", "persistence_test", "json_corpus_test"]),
                   (["Foundation/[KO]*.cpp"], ["foundation_test"]),
                   (["Foundation/Text*.cpp"], ["foundation_test", "model_test", "planning_projects_test"])],
    "LaunchAgent": [(["LaunchAgent/*.cpp"], ["launch_agent_test", "model_test", "launchctl_test", "systemd_test"])],
    "Model": [(["Model/*.cpp"], ["model_test"])],
    "Persistence": [(["Persistence/*.cpp"], ["persistence_test"])],
    "Planning": [(["Planning/*.cpp"], ["planning_test", "persistence_test"])],
    "PlanningProjects": [(["PlanningProjects/*.cpp"], ["planning_projects_test"])],
    "Platform/Files": [(["Platform/Files/*.cpp", "Platform/Files/detail/*.cpp"],
                        ["platform_files_test", "persistence_test"])],
    "ShortcutRecording": [(["ShortcutRecorder/ShortcutRecording.cpp"], ["shortcut_recorder_test"])],
    "Shortcuts": [(["Shortcuts/*.cpp"], ["shortcuts_test"])],
}
