#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "include/cef_parser.h"

namespace {

CefRefPtr<CefValue> Parse(const char* text) {
  return CefParseJSON(text, JSON_PARSER_RFC);
}

std::string Write(const char* text, int options = JSON_WRITER_DEFAULT) {
  return CefWriteJSON(Parse(text), static_cast<cef_json_writer_options_t>(options));
}

TEST(JsonValuesTest, MakesValuesOfJson) {
  CefRefPtr<CefValue> value = Parse(R"({"a":[true,null,"x"],"i":2147483647,"d":2147483648})");
  ASSERT_TRUE(value);
  CefRefPtr<CefDictionaryValue> dictionary = value->GetDictionary();
  EXPECT_EQ(dictionary->GetList("a")->GetType(1), VTYPE_NULL);
  EXPECT_EQ(dictionary->GetList("a")->GetString(2).ToString(), "x");
  EXPECT_EQ(dictionary->GetType("i"), VTYPE_INT);
  EXPECT_EQ(dictionary->GetType("d"), VTYPE_DOUBLE);
  EXPECT_EQ(dictionary->GetDouble("d"), 2147483648.0);
  EXPECT_FALSE(value->IsOwned());
}

TEST(JsonValuesTest, ReadsBytes) {
  const char text[] = {'[', '1', ']'};
  EXPECT_TRUE(CefParseJSON(text, 3, JSON_PARSER_RFC));
  EXPECT_FALSE(CefParseJSON(text, 2, JSON_PARSER_RFC));
  EXPECT_FALSE(CefParseJSON(nullptr, 3, JSON_PARSER_RFC));
}

TEST(JsonValuesTest, SaysWhatIsWrong) {
  CefString error("before");
  EXPECT_TRUE(CefParseJSONAndReturnError("[1]", JSON_PARSER_RFC, error));
  EXPECT_EQ(error.ToString(), "before");
  EXPECT_FALSE(CefParseJSONAndReturnError("[1,]", JSON_PARSER_RFC, error));
  EXPECT_EQ(error.ToString(), "Line: 1, column: 4, Syntax error.");
  EXPECT_TRUE(CefParseJSON("[1,]", JSON_PARSER_ALLOW_TRAILING_COMMAS));
}

TEST(JsonValuesTest, WritesWhatItReads) {
  EXPECT_EQ(Write(R"({"b":[1,-2,true,null,"x\ny"],"a":{}})"),
            R"({"a":{},"b":[1,-2,true,null,"x\ny"]})");
  EXPECT_EQ(Write("\"<\\u00e4>\""), "\"\\u003C\xC3\xA4>\"");
}

TEST(JsonValuesTest, DoublesStayDoublesUnlessToldOtherwise) {
  EXPECT_EQ(Write("[1.0,0.5,1e30]"), "[1.0,0.5,1e+30]");
  EXPECT_EQ(Write("[1.0,0.5]", JSON_WRITER_OMIT_DOUBLE_TYPE_PRESERVATION), "[1,0.5]");
  CefRefPtr<CefValue> value = CefValue::Create();
  value->SetDouble(std::nan(""));
  EXPECT_EQ(CefWriteJSON(value, JSON_WRITER_DEFAULT).ToString(), "");
}

TEST(JsonValuesTest, WritesForPeople) {
  EXPECT_EQ(Write(R"({"a":[1,2],"b":{"c":1}})", JSON_WRITER_PRETTY_PRINT),
            "{\r\n   \"a\": [ 1, 2 ],\r\n   \"b\": {\r\n      \"c\": 1\r\n   }\r\n}\r\n");
}

TEST(JsonValuesTest, BytesHaveNoFormInJson) {
  CefRefPtr<CefListValue> list = CefListValue::Create();
  list->SetInt(0, 1);
  list->SetBinary(1, CefBinaryValue::Create("x", 1));
  CefRefPtr<CefValue> value = CefValue::Create();
  value->SetList(list);
  EXPECT_EQ(CefWriteJSON(value, JSON_WRITER_DEFAULT).ToString(), "");
  EXPECT_EQ(CefWriteJSON(value, JSON_WRITER_OMIT_BINARY_VALUES).ToString(), "[1]");
  EXPECT_EQ(CefWriteJSON(nullptr, JSON_WRITER_DEFAULT).ToString(), "");
}

}  // namespace
