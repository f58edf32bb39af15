// What the host learns of a page's posts to a federated search service.
#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "unit/handler/request_test.h"

namespace kzcef {
namespace {

using recording_cef::FakePostElement;
using recording_cef::FakeRequest;
using ::testing::_;
using ::testing::ElementsAre;

constexpr char kUrl[] = "http://a.test/federated/search";

class PostedJsonTest : public testing::RequestTest {
 protected:
  PostedJsonTest() {
    request_->resource_type = RT_XHR;
    SetType("application/json");
  }

  void SetType(const char* type) {
    request_->headers.clear();
    request_->headers.emplace("Content-Type", type);
  }
  CefRefPtr<FakePostElement> AddElement(cef_postdataelement_type_t type, std::string bytes) {
    const CefRefPtr<FakePostElement> element = new FakePostElement;
    element->type = type;
    element->bytes = std::move(bytes);
    if (!request_->post_data) {
      request_->post_data = new recording_cef::FakePostData;
    }
    request_->post_data->AddElement(element);
    return element;
  }
  void Complete() {
    handler_->OnResourceLoadComplete(browser_, frame(), request_, nullptr, UR_FAILED, -1);
  }
  void ExpectJson(const std::wstring& json) {
    EXPECT_CALL(*host_, ResourceLoadCompleteNotify(window(), request_->url.ToWString(), json));
  }

  const CefRefPtr<FakeRequest> request_ = Request(kUrl);
};

TEST_F(PostedJsonTest, IsToldWithTheRequestsUrlWhateverBecameOfIt) {
  AddElement(PDE_TYPE_BYTES, R"({"query":"x"})");
  ExpectJson(LR"({"query":"x"})");
  Complete();
  EXPECT_THAT(Traced(), ElementsAre(L"OnResourceLoadComplete : http://a.test/federated/search"));
}

TEST_F(PostedJsonTest, IsToldForAnUpperCaseTypeWithACharset) {
  SetType("APPLICATION/JSON; CHARSET=UTF-8");
  AddElement(PDE_TYPE_BYTES, "{}");
  ExpectJson(L"{}");
  Complete();
}

TEST_F(PostedJsonTest, IsToldForAnyTypeWithTheWord) {
  SetType("application/vnd.api+json");
  AddElement(PDE_TYPE_BYTES, "{}");
  ExpectJson(L"{}");
  Complete();
}

TEST_F(PostedJsonTest, IsToldWhateverTheLetterCaseOfTheHeadersName) {
  request_->headers = {{"content-type", "application/json"}};
  AddElement(PDE_TYPE_BYTES, "{}");
  ExpectJson(L"{}");
  Complete();
}

TEST_F(PostedJsonTest, IsNotToldForAUrlWithTheWordInAnotherLetterCase) {
  request_->url = "http://a.test/Federated";
  AddElement(PDE_TYPE_BYTES, "{}");
  Complete();
}

TEST_F(PostedJsonTest, IsToldForAUrlWithTheWordAnywhere) {
  request_->url = "http://a.test/?q=unfederatedx";
  AddElement(PDE_TYPE_BYTES, "{}");
  ExpectJson(L"{}");
  Complete();
}

TEST_F(PostedJsonTest, IsNotToldForOtherResourceTypes) {
  AddElement(PDE_TYPE_BYTES, "{}");
  for (int type = RT_MAIN_FRAME; type <= RT_NAVIGATION_PRELOAD_SUB_FRAME; ++type) {
    request_->resource_type = static_cast<cef_resource_type_t>(type);
    if (type != RT_XHR) {
      Complete();
    }
  }
}

TEST_F(PostedJsonTest, IsNotToldForOtherMediaTypes) {
  AddElement(PDE_TYPE_BYTES, "{}");
  SetType("text/plain");
  Complete();
  request_->headers.clear();
  Complete();
}

TEST_F(PostedJsonTest, IsNotToldWithoutABody) {
  Complete();
  request_->post_data = new recording_cef::FakePostData;
  Complete();
}

TEST_F(PostedJsonTest, IsTheFirstElementOfBytesThatIsNotEmpty) {
  AddElement(PDE_TYPE_EMPTY, "empty");
  AddElement(PDE_TYPE_FILE, "file");
  AddElement(PDE_TYPE_BYTES, "");
  AddElement(PDE_TYPE_BYTES, "first");
  const auto second = AddElement(PDE_TYPE_BYTES, "second");
  ExpectJson(L"first");
  Complete();
  EXPECT_EQ(second->reads, 0);
}

TEST_F(PostedJsonTest, IsNotToldForABodyOfFilesOnly) {
  AddElement(PDE_TYPE_FILE, "file");
  Complete();
}

TEST_F(PostedJsonTest, IsReadInTheAnsiCodePageWhateverTheCharset) {
  // Kept deliberately: the two bytes of a UTF-8 letter stay two characters.
  ASSERT_EQ(GetACP(), 1252u);
  AddElement(PDE_TYPE_BYTES, "\xC3\xA4\x80");
  ExpectJson(L"\u00C3\u00A4\u20AC");
  Complete();
}

TEST_F(PostedJsonTest, EndsAtANullByte) {
  AddElement(PDE_TYPE_BYTES, std::string("{}\0rest", 7));
  ExpectJson(L"{}");
  Complete();
}

TEST_F(PostedJsonTest, ThatBeginsWithANullByteIsNotTold) {
  AddElement(PDE_TYPE_BYTES, std::string("\0{}", 3));
  AddElement(PDE_TYPE_BYTES, "{}");
  Complete();
}

TEST_F(PostedJsonTest, IsWholeWhenItIsLong) {
  const size_t size = 4 * 1024 * 1024;
  AddElement(PDE_TYPE_BYTES, std::string(size, 'x'));
  ExpectJson(std::wstring(size, L'x'));
  Complete();
}

TEST_F(PostedJsonTest, IsNotToldWhileTheHostCloses) {
  host_->closing = true;
  AddElement(PDE_TYPE_BYTES, "{}");
  Complete();
}

TEST_F(PostedJsonTest, ThatFindsNoMemoryIsHarmless) {
  AddElement(PDE_TYPE_BYTES, "{}");
  EXPECT_CALL(*host_, ResourceLoadCompleteNotify(_, _, _)).WillOnce([] { throw std::bad_alloc(); });
  Complete();
}

}  // namespace
}  // namespace kzcef
