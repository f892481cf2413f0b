"""What can be mutated, and which test programs hold it: the quickest first. docs/mutation.md says which are left out."""

SOURCES = "VantleSettings/"

# Too slow without optimisation to run for each mutant.
SLOW_TESTS = ["Text.ComposesEveryScalarAsTheToolkitDoes", "Text.ComposesLongTextsInTimeThatGrowsWithTheirLength",
              "Json.CountsBeyondWhatTheParserCounts", "Manifest.HostileTextsAreReadInTimeThatGrowsWithTheirLength"]

# Name: sources, and test programs.
FOLDERS = {
    "AgentBridge": (["AgentBridge/*.cpp"], ["agent_test", "agent_port_test"]),
    "Foundation": (["Foundation/*.cpp"],
                   ["platform_files_test", "platform_test", "projectlist_test", "planning_test",
                    "json_corpus_test"]),
    "LaunchAgent": (["LaunchAgent/*.cpp"], ["model_test", "launchctl_test", "systemd_test"]),
    "Model": (["Model/*.cpp"], ["model_test", "projectlist_test"]),
    "Persistence": (["Persistence/*.cpp"], ["persistence_test"]),
    "Planning": (["Planning/*.cpp"], ["persistence_test"]),
    "PlanningProjects": (["PlanningProjects/*.cpp"], ["planning_test"]),
    "Platform/Files": (["Platform/Files/*.cpp", "Platform/Files/detail/*.cpp"],
                       ["platform_files_test", "fonts_test", "persistence_test"]),
    "ShortcutRecording": (["ShortcutRecorder/ShortcutRecording.cpp"], ["recorder_test"]),
    "Shortcuts": (["Shortcuts/*.cpp"], ["shortcuts_test"]),
}
