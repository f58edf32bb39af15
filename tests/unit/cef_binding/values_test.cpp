// Values are the engine's: what the product relies on in them.
#include "include/cef_values.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "include/cef_process_message.h"

namespace {

TEST(ValueTest, HoldsEachType) {
  CefRefPtr<CefValue> value = CefValue::Create();
  EXPECT_EQ(value->GetType(), VTYPE_NULL);
  EXPECT_TRUE(value->SetInt(7));
  EXPECT_EQ(value->GetType(), VTYPE_INT);
  EXPECT_EQ(value->GetInt(), 7);
  // A whole number is no other number.
  EXPECT_EQ(value->GetDouble(), 0.0);
  EXPECT_EQ(value->GetString(), CefString());
  EXPECT_TRUE(value->SetString("x"));
  EXPECT_EQ(value->GetString().ToString(), "x");
  EXPECT_EQ(value->GetInt(), 0);
  EXPECT_TRUE(value->SetBool(true));
  EXPECT_TRUE(value->GetBool());
  EXPECT_FALSE(value->SetDictionary(nullptr));
  EXPECT_EQ(value->GetType(), VTYPE_BOOL);
}

TEST(ValueTest, RefersToTheComplexValueItWasGiven) {
  CefRefPtr<CefValue> value = CefValue::Create();
  CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  value->SetDictionary(dictionary);
  value->GetDictionary()->SetInt("a", 1);
  EXPECT_EQ(dictionary->GetInt("a"), 1);
  CefRefPtr<CefValue> copy = value->Copy();
  copy->GetDictionary()->SetInt("a", 2);
  EXPECT_EQ(dictionary->GetInt("a"), 1);
  EXPECT_FALSE(copy->IsEqual(value));
}

TEST(DictionaryValueTest, StoresAndFindsValues) {
  CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  EXPECT_TRUE(dictionary->SetBool("b", true));
  EXPECT_TRUE(dictionary->SetInt("i", 1));
  EXPECT_TRUE(dictionary->SetDouble("d", 1.5));
  EXPECT_TRUE(dictionary->SetString("s", "text"));
  EXPECT_TRUE(dictionary->SetNull("n"));
  EXPECT_EQ(dictionary->GetSize(), 5u);
  EXPECT_TRUE(dictionary->GetBool("b"));
  EXPECT_EQ(dictionary->GetDouble("d"), 1.5);
  EXPECT_EQ(dictionary->GetDouble("i"), 0.0);
  EXPECT_EQ(dictionary->GetString("s").ToString(), "text");
  EXPECT_EQ(dictionary->GetType("n"), VTYPE_NULL);
  EXPECT_EQ(dictionary->GetType("none"), VTYPE_INVALID);
  EXPECT_FALSE(dictionary->GetValue("none"));
  CefDictionaryValue::KeyList keys;
  EXPECT_TRUE(dictionary->GetKeys(keys));
  EXPECT_EQ(keys, (CefDictionaryValue::KeyList{"b", "d", "i", "n", "s"}));
  EXPECT_TRUE(dictionary->Remove("b"));
  EXPECT_FALSE(dictionary->Remove("b"));
  EXPECT_TRUE(dictionary->Clear());
  EXPECT_EQ(dictionary->GetSize(), 0u);
}

TEST(DictionaryValueTest, AnEmptyKeyIsRefused) {
  CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  EXPECT_FALSE(dictionary->SetInt("", 1));
  EXPECT_EQ(dictionary->GetSize(), 0u);
}

TEST(DictionaryValueTest, AValueHandedOverIsInvalid) {
  CefRefPtr<CefDictionaryValue> parent = CefDictionaryValue::Create();
  CefRefPtr<CefDictionaryValue> child = CefDictionaryValue::Create();
  child->SetInt("x", 1);
  EXPECT_FALSE(child->IsOwned());
  EXPECT_TRUE(parent->SetDictionary("child", child));
  EXPECT_FALSE(child->IsValid());
  EXPECT_FALSE(child->SetInt("x", 2));
  EXPECT_EQ(child->GetSize(), 0u);

  CefRefPtr<CefDictionaryValue> inside = parent->GetDictionary("child");
  EXPECT_TRUE(inside->IsValid());
  EXPECT_TRUE(inside->IsOwned());
  inside->SetInt("x", 3);
  EXPECT_EQ(parent->GetDictionary("child")->GetInt("x"), 3);
  EXPECT_TRUE(inside->IsSame(parent->GetDictionary("child")));
}

TEST(DictionaryValueTest, AValueOwnedElsewhereIsCopied) {
  CefRefPtr<CefDictionaryValue> first = CefDictionaryValue::Create();
  CefRefPtr<CefDictionaryValue> second = CefDictionaryValue::Create();
  first->SetList("l", CefListValue::Create());
  CefRefPtr<CefListValue> list = first->GetList("l");
  EXPECT_TRUE(second->SetList("l", list));
  EXPECT_TRUE(list->IsValid());
  list->SetInt(0, 1);
  EXPECT_EQ(first->GetList("l")->GetSize(), 1u);
  EXPECT_EQ(second->GetList("l")->GetSize(), 0u);
}

TEST(DictionaryValueTest, ReferencesEndWithTheirPlaceInTheTree) {
  CefRefPtr<CefDictionaryValue> parent = CefDictionaryValue::Create();
  parent->SetDictionary("a", CefDictionaryValue::Create());
  parent->SetDictionary("b", CefDictionaryValue::Create());
  CefRefPtr<CefDictionaryValue> removed = parent->GetDictionary("a");
  CefRefPtr<CefDictionaryValue> orphan = parent->GetDictionary("b");
  parent->Remove("a");
  EXPECT_FALSE(removed->IsValid());
  EXPECT_TRUE(orphan->IsValid());
  parent = nullptr;
  EXPECT_FALSE(orphan->IsValid());
  EXPECT_FALSE(orphan->SetInt("x", 1));
  EXPECT_FALSE(orphan->Copy(false));
}

TEST(DictionaryValueTest, AValueObjectFollowsTheDataItWasStoredAs) {
  CefRefPtr<CefDictionaryValue> parent = CefDictionaryValue::Create();
  CefRefPtr<CefDictionaryValue> data = CefDictionaryValue::Create();
  CefRefPtr<CefValue> value = CefValue::Create();
  value->SetDictionary(data);
  EXPECT_TRUE(parent->SetValue("v", value));
  EXPECT_FALSE(data->IsValid());
  EXPECT_TRUE(value->IsValid());
  EXPECT_TRUE(value->IsOwned());
  value->GetDictionary()->SetInt("x", 5);
  EXPECT_EQ(parent->GetDictionary("v")->GetInt("x"), 5);

  // A simple value is copied.
  value = CefValue::Create();
  value->SetInt(1);
  parent->SetValue("i", value);
  value->SetInt(2);
  EXPECT_EQ(parent->GetInt("i"), 1);
}

TEST(DictionaryValueTest, CopiesWithoutEmptyChildren) {
  CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  dictionary->SetDictionary("empty", CefDictionaryValue::Create());
  dictionary->SetInt("x", 1);
  EXPECT_EQ(dictionary->Copy(false)->GetSize(), 2u);
  EXPECT_EQ(dictionary->Copy(true)->GetSize(), 1u);
  EXPECT_TRUE(dictionary->IsEqual(dictionary->Copy(false)));
  EXPECT_FALSE(dictionary->IsSame(dictionary->Copy(false)));
}

TEST(ListValueTest, GrowsToTheIndexThatIsSet) {
  CefRefPtr<CefListValue> list = CefListValue::Create();
  EXPECT_TRUE(list->SetInt(2, 5));
  EXPECT_EQ(list->GetSize(), 3u);
  EXPECT_EQ(list->GetType(0), VTYPE_NULL);
  EXPECT_EQ(list->GetInt(2), 5);
  EXPECT_EQ(list->GetType(3), VTYPE_INVALID);
  EXPECT_TRUE(list->Remove(0));
  EXPECT_EQ(list->GetInt(1), 5);
  EXPECT_FALSE(list->Remove(2));
  EXPECT_TRUE(list->SetSize(1));
  EXPECT_EQ(list->GetSize(), 1u);
}

TEST(BinaryValueTest, HoldsACopyOfTheBytes) {
  char bytes[] = "abc";
  CefRefPtr<CefBinaryValue> binary = CefBinaryValue::Create(bytes, 3);
  bytes[0] = 'x';
  EXPECT_EQ(binary->GetSize(), 3u);
  char read[3] = {};
  EXPECT_EQ(binary->GetData(read, 3, 1), 2u);
  EXPECT_EQ(std::string(read, 2), "bc");
  EXPECT_EQ(binary->GetData(read, 3, 3), 0u);
  EXPECT_EQ(static_cast<const char*>(binary->GetRawData())[0], 'a');
  EXPECT_FALSE(CefBinaryValue::Create(nullptr, 3));
  EXPECT_FALSE(CefBinaryValue::Create(bytes, 0));
  EXPECT_TRUE(binary->IsEqual(binary->Copy()));
}

TEST(ProcessMessageTest, CarriesAListOfArguments) {
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("Name");
  message->GetArgumentList()->SetString(0, "x");
  EXPECT_EQ(message->GetName().ToString(), "Name");
  EXPECT_FALSE(message->IsReadOnly());
  CefRefPtr<CefProcessMessage> copy = message->Copy();
  EXPECT_EQ(copy->GetArgumentList()->GetString(0).ToString(), "x");
  EXPECT_FALSE(CefProcessMessage::Create(""));
}

TEST(ValuesTest, ManyThreadsMayUseOneTree) {
  CefRefPtr<CefDictionaryValue> root = CefDictionaryValue::Create();
  root->SetList("l", CefListValue::Create());
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([root, t] {
      for (int i = 0; i < 500; ++i) {
        CefRefPtr<CefListValue> list = root->GetList("l");
        if (list) {
          list->SetInt(static_cast<size_t>(t), i);
        }
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (size_t t = 0; t < 4; ++t) {
    EXPECT_EQ(root->GetList("l")->GetInt(t), 499);
  }
}

}  // namespace
