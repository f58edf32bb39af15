// How the engine reads and writes command lines.
#include "include/cef_command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> Argv(const CefRefPtr<CefCommandLine>& line) {
  std::vector<CefString> argv;
  line->GetArgv(argv);
  return {argv.begin(), argv.end()};
}

CefRefPtr<CefCommandLine> Parsed(const char* text) {
  CefRefPtr<CefCommandLine> line = CefCommandLine::CreateCommandLine();
  line->InitFromString(text);
  return line;
}

TEST(CommandLineTest, ReadsProgramSwitchesAndArguments) {
  const auto line = Parsed("\"C:\\my app\\a.exe\" --One -two=2 /three:x=3 argument --FOUR=\"a b\"");
  EXPECT_EQ(line->GetProgram().ToString(), "C:\\my app\\a.exe");
  EXPECT_TRUE(line->HasSwitch("one"));
  EXPECT_EQ(line->GetSwitchValue("two").ToString(), "2");
  EXPECT_EQ(line->GetSwitchValue("three:x").ToString(), "3");
  EXPECT_EQ(line->GetSwitchValue("four").ToString(), "a b");
  std::vector<CefString> arguments;
  line->GetArguments(arguments);
  ASSERT_EQ(arguments.size(), 1u);
  EXPECT_EQ(arguments[0].ToString(), "argument");
}

TEST(CommandLineTest, SwitchNamesAreLowerCaseAndValuesAreNot) {
  const auto line = CefCommandLine::CreateCommandLine();
  line->AppendSwitchWithValue("Lang", "De-DE");
  EXPECT_TRUE(line->HasSwitch("LANG"));
  EXPECT_EQ(line->GetSwitchValue("lang").ToString(), "De-DE");
  EXPECT_EQ(Argv(line), (std::vector<std::string>{"", "--lang=De-DE"}));
}

TEST(CommandLineTest, TheLastValueOfARepeatedSwitchWins) {
  const auto line = CefCommandLine::CreateCommandLine();
  line->AppendSwitchWithValue("proxy", "a");
  line->AppendSwitchWithValue("Proxy", "b");
  EXPECT_EQ(line->GetSwitchValue("proxy").ToString(), "b");
  EXPECT_EQ(Argv(line), (std::vector<std::string>{"", "--proxy=a", "--proxy=b"}));
  CefCommandLine::SwitchMap switches;
  line->GetSwitches(switches);
  EXPECT_EQ(switches.size(), 1u);
}

TEST(CommandLineTest, SwitchesStandBeforeArgumentsInTheOrderOfTheirArrival) {
  const auto line = Parsed("a.exe first");
  line->AppendSwitch("x");
  line->AppendArgument("second");
  line->AppendSwitch("a");
  EXPECT_EQ(Argv(line), (std::vector<std::string>{"a.exe", "--x", "--a", "first", "second"}));
}

TEST(CommandLineTest, PrefixesAreKeptButNotPartOfTheName) {
  const auto line = CefCommandLine::CreateCommandLine();
  line->AppendSwitch("-short");
  line->AppendSwitch("--long");
  EXPECT_TRUE(line->HasSwitch("short"));
  EXPECT_TRUE(line->HasSwitch("long"));
  EXPECT_EQ(Argv(line), (std::vector<std::string>{"", "-short", "--long"}));
}

TEST(CommandLineTest, AnEmptyNameOrValueAppendsNothing) {
  const auto line = CefCommandLine::CreateCommandLine();
  line->AppendSwitch("");
  line->AppendSwitchWithValue("name", "");
  line->AppendSwitchWithValue("", "value");
  line->AppendArgument("");
  EXPECT_FALSE(line->HasSwitches());
  EXPECT_FALSE(line->HasArguments());
  EXPECT_EQ(Argv(line).size(), 1u);
}

TEST(CommandLineTest, TextCanBeReadBack) {
  const auto line = Parsed("a.exe");
  line->SetProgram("C:\\my app\\b.exe");
  line->AppendSwitchWithValue("one", "a \"b\" c\\");
  line->AppendSwitchWithValue("two", "C:\\x");
  line->AppendArgument("last one");
  const CefString text = line->GetCommandLineString();
  EXPECT_EQ(text.ToString(),
            "\"C:\\my app\\b.exe\" --one=\"a \\\"b\\\" c\\\\\" --two=\"C:\\x\" \"last one\"");
  const auto again = CefCommandLine::CreateCommandLine();
  again->InitFromString(text);
  EXPECT_EQ(Argv(again), Argv(line));
}

TEST(CommandLineTest, NothingAfterTheTerminatorIsASwitch) {
  const auto line = Parsed("a.exe --x -- --y z");
  EXPECT_TRUE(line->HasSwitch("x"));
  EXPECT_FALSE(line->HasSwitch("y"));
  std::vector<CefString> arguments;
  line->GetArguments(arguments);
  ASSERT_EQ(arguments.size(), 2u);
  EXPECT_EQ(arguments[0].ToString(), "--y");
}

TEST(CommandLineTest, ResetLeavesTheProgram) {
  const auto line = Parsed("a.exe --x y");
  line->Reset();
  EXPECT_EQ(Argv(line), (std::vector<std::string>{"a.exe"}));
  EXPECT_FALSE(line->HasSwitches());
}

TEST(CommandLineTest, ACopyIsIndependent) {
  const auto line = Parsed("a.exe --x");
  const auto copy = line->Copy();
  copy->AppendSwitch("y");
  EXPECT_TRUE(copy->HasSwitch("x"));
  EXPECT_FALSE(line->HasSwitch("y"));
}

TEST(CommandLineTest, WrapperStandsInFront) {
  const auto line = Parsed("a.exe --x");
  line->PrependWrapper("debugger --args");
  EXPECT_EQ(line->GetProgram().ToString(), "debugger");
  EXPECT_EQ(Argv(line), (std::vector<std::string>{"debugger", "--args", "a.exe", "--x"}));
  line->AppendSwitch("y");
  EXPECT_EQ(Argv(line).back(), "--y");
}

TEST(CommandLineTest, TheProcessHasNoneBeforeTheEngineStarts) {
  EXPECT_FALSE(CefCommandLine::GetGlobalCommandLine());
}

}  // namespace
