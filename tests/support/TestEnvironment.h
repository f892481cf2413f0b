#pragma once

/// Runs all tests of the program: every case has a home directory of its own (`HOME`), removed afterwards,
/// and a Qt warning fails the case that caused it. Returns the process's exit status; a program without a
/// test fails.
int runAllTests(int argc, char **argv);
