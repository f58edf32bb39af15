// Objects of the engine on this side: each holds one reference, and lets go of it.
#include <gtest/gtest.h>

#include "binding.h"
#include "include/cef_request.h"
#include "include/cef_values.h"

namespace {

using cefbinding::g_library_objects;

TEST(ReferencesTest, GoWithTheLastHolder) {
  const int before = g_library_objects;
  CefRefPtr<CefDictionaryValue> value = CefDictionaryValue::Create();
  EXPECT_EQ(g_library_objects, before + 1);
  EXPECT_TRUE(value->HasOneRef());
  CefRefPtr<CefDictionaryValue> second = value;
  EXPECT_FALSE(value->HasOneRef());
  value = nullptr;
  EXPECT_TRUE(second->HasOneRef());
  second = nullptr;
  EXPECT_EQ(g_library_objects, before);
}

TEST(ReferencesTest, ACallHandsTheEngineOneOfItsOwn) {
  const CefRefPtr<CefRequest> request = CefRequest::Create();
  CefRefPtr<CefPostData> body = CefPostData::Create();
  EXPECT_TRUE(body->HasOneRef());
  request->SetPostData(body);
  // The request holds it, too.
  EXPECT_FALSE(body->HasOneRef());
  body = nullptr;
  EXPECT_TRUE(request->GetPostData());
}

TEST(ReferencesTest, AResultIsAnObjectOfItsOwn) {
  const CefRefPtr<CefRequest> request = CefRequest::Create();
  request->SetPostData(CefPostData::Create());
  const int before = g_library_objects;
  {
    const CefRefPtr<CefPostData> first = request->GetPostData();
    const CefRefPtr<CefPostData> second = request->GetPostData();
    EXPECT_FALSE(first == second);
    EXPECT_EQ(g_library_objects, before + 2);
  }
  EXPECT_EQ(g_library_objects, before);
}

TEST(ReferencesTest, ElementsOfAListAreTakenOver) {
  const CefRefPtr<CefPostData> body = CefPostData::Create();
  for (const char* const text : {"a", "b"}) {
    const CefRefPtr<CefPostDataElement> element = CefPostDataElement::Create();
    element->SetToBytes(1, text);
    body->AddElement(element);
  }
  const int before = g_library_objects;
  CefPostData::ElementVector elements;
  body->GetElements(elements);
  ASSERT_EQ(elements.size(), 2u);
  EXPECT_EQ(g_library_objects, before + 2);
  char byte = 0;
  EXPECT_EQ(elements[1]->GetBytes(1, &byte), 1u);
  EXPECT_EQ(byte, 'b');
  elements.clear();
  EXPECT_EQ(g_library_objects, before);
}

}  // namespace
