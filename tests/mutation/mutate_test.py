"""Tests which changes mutate.py makes of a source, and which tests it runs."""

import pathlib
import tempfile
import unittest
from unittest import mock

import mutate

KNOWN = """all: phony
tests/check/check_tests: CXX_EXECUTABLE_LINKER__check_tests_Debug
tests/graph/allocation_tests: CXX_EXECUTABLE_LINKER__allocation_tests_Debug
tests/graph/graph_tests: CXX_EXECUTABLE_LINKER__graph_tests_Debug
tests/differential/differential_tests: CXX_EXECUTABLE_LINKER__differential_tests_Debug
"""


class ChangesTest(unittest.TestCase):
    def assert_changes(self, text, expected):
        """Compares the mutants of a file, each as the number of its line, its kind and
        the changed line."""
        found = [(mutant.number, mutant.kind, mutant.after)
                 for mutant in mutate.mutants_in("check/rules/x.cpp", text)]
        self.assertEqual(found, expected)

    def test_operators_and_constants(self):
        self.assert_changes("return a < b;", [(1, "relation", "return a <= b;")])
        self.assert_changes("return a && b;", [(1, "logic", "return a || b;")])
        self.assert_changes("return true;", [(1, "constant", "return false;")])
        self.assert_changes("return 0x0f;", [(1, "constant", "return 16;")])

    def test_conditions_are_negated(self):
        self.assert_changes("if (ready()) {", [(1, "negation", "if (!(ready())) {")])

    def test_statements_are_dropped(self):
        self.assert_changes("    close(file);", [(1, "dropped", "    ;")])

    def test_strings_are_extended(self):
        self.assert_changes('return "a == 1";', [(1, "string", 'return "a == 1!";')])

    def test_comments_and_raw_strings_are_not_changed(self):
        self.assert_changes("// a == 1", [])
        self.assert_changes("/* a == 1\n   b == 2 */", [])
        self.assert_changes('const char* const TEXT = R"({\n  "a": 1 == 1\n})";', [])
        self.assert_changes('const char* const TEXT = R"x(\n  1)"\n  2)x";', [])

    def test_a_quote_in_a_character_starts_no_string(self):
        self.assert_changes("return c == '\"' && d == '\\'';",
                            [(1, "relation", "return c != '\"' && d == '\\'';"),
                             (1, "relation", "return c == '\"' && d != '\\'';"),
                             (1, "logic", "return c == '\"' || d == '\\'';")])

    def test_lines_after_a_raw_string_keep_their_numbers(self):
        self.assert_changes('const char* const TEXT = R"(\n\n)";\nreturn true;',
                            [(4, "constant", "return false;")])

    def test_directives_are_not_changed(self):
        self.assert_changes('#include "check/check.h"', [])


class KeysTest(unittest.TestCase):
    def keys_of(self, text):
        return [mutate.key_of(mutant) for mutant in mutate.mutants_in("source/x.cpp", text)]

    def test_a_line_that_moves_keeps_its_key(self):
        self.assertEqual(self.keys_of("return true;"), self.keys_of("\n\n    return true;"))

    def test_equal_lines_have_different_keys(self):
        keys = self.keys_of("return true;\nreturn true;")
        self.assertEqual(len(set(keys)), 2)


class ProgramsTest(unittest.TestCase):
    def test_a_module_has_its_own_programs_first(self):
        self.assertEqual(mutate.programs_of("graph", KNOWN),
                         ["graph_tests", "allocation_tests", "differential_tests"])

    def test_programs_that_do_not_exist_are_skipped(self):
        self.assertEqual(mutate.programs_of("check", KNOWN), ["check_tests"])
        self.assertEqual(mutate.programs_of("source", KNOWN), [])


class SourcesTest(unittest.TestCase):
    def test_every_module_of_the_project_has_mutants(self):
        for module in mutate.MODULES:
            if (mutate.ROOT / module).is_dir():
                self.assertTrue(any(mutate.mutants_of(module)), module)

    def test_a_module_includes_its_folders(self):
        with tempfile.TemporaryDirectory() as root:
            rules = pathlib.Path(root) / "check" / "rules"
            rules.mkdir(parents=True)
            (rules / "rule.cpp").write_text("return true;\n")
            (rules.parent / "check.h").write_text("return false;\n")
            with mock.patch.object(mutate, "ROOT", pathlib.Path(root)):
                self.assertEqual([mutant.file for mutant in mutate.mutants_of("check")],
                                 ["check/check.h", "check/rules/rule.cpp"])


if __name__ == "__main__":
    unittest.main()
