// Credentials that a proxy asks for and the host tells.
#include <comdef.h>
#include <gmock/gmock.h>

#include <string>

#include "com/text.h"
#include "handler/auth_answer.h"
#include "recording_cef/fake_auth_callback.h"
#include "unit/handler/handler_test.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using ::testing::_;
using testing::HandlerTest;
using ::testing::IsEmpty;

constexpr bool kProxy = true;
constexpr bool kServer = false;

class CredentialsTest : public HandlerTest {
 protected:
  // True when the request waits for the callback.
  bool Ask(bool is_proxy, const CefString& realm = "\xC3\xA4 realm") {
    return handler_->GetAuthCredentials(browser_, "http://a.test/\xC3\xA4", is_proxy, "proxy.test",
                                        3128, realm, "basic", callback_);
  }

  // The host answers with these; a text that is null is left as it is.
  void Answer(VARIANT_BOOL should_continue,
              const wchar_t* username = nullptr,
              const wchar_t* password = nullptr) {
    EXPECT_CALL(*host_, GetAuthCredentialsNotify(window(), _, _, _, _, _, _, _, _, _))
        .WillOnce([=](HWND, BSTR*, VARIANT_BOOL*, BSTR*, long, BSTR*, BSTR*, VARIANT_BOOL* proceed,
                      BSTR* name, BSTR* secret) {
          *proceed = should_continue;
          if (username) {
            SysReAllocString(name, username);
          }
          if (password) {
            SysReAllocString(secret, password);
          }
        });
  }

  void ExpectContinued(const std::wstring& username, const std::wstring& password) {
    EXPECT_EQ(callback_->cancel_count, 0);
    ASSERT_EQ(callback_->continuations.size(), 1u);
    EXPECT_EQ(callback_->continuations[0].username.ToWString(), username);
    EXPECT_EQ(callback_->continuations[0].password.ToWString(), password);
  }
  void ExpectCancelled() {
    EXPECT_EQ(callback_->cancel_count, 1);
    EXPECT_THAT(callback_->continuations, IsEmpty());
  }

  const CefRefPtr<recording_cef::FakeAuthCallback> callback_ = new recording_cef::FakeAuthCallback;
};

TEST_F(CredentialsTest, AreLeftToCefForAServer) {
  EXPECT_FALSE(Ask(kServer));
  EXPECT_EQ(callback_->cancel_count, 0);
  EXPECT_THAT(callback_->continuations, IsEmpty());
  EXPECT_THAT(host_->exchanges, IsEmpty());
}

TEST_F(CredentialsTest, AreLeftToCefForAServerWhateverTheKindOfHost) {
  SetHostKind(L"KzxMeadow");
  EXPECT_FALSE(Ask(kServer));
  EXPECT_EQ(callback_->cancel_count, 0);
  EXPECT_THAT(cef_.tasks, IsEmpty());
}

TEST_F(CredentialsTest, AreAskedForWithAllThatIsKnown) {
  EXPECT_CALL(*host_, GetAuthCredentialsNotify(window(), _, _, _, 3128, _, _, _, _, _))
      .WillOnce([](HWND, BSTR* origin, VARIANT_BOOL* is_proxy, BSTR* host, long, BSTR* realm,
                   BSTR* scheme, VARIANT_BOOL* should_continue, BSTR* username, BSTR* password) {
        EXPECT_EQ(TextOf(*origin), L"http://a.test/\u00E4");
        EXPECT_EQ(*is_proxy, VARIANT_TRUE);
        EXPECT_EQ(TextOf(*host), L"proxy.test");
        EXPECT_EQ(TextOf(*realm), L"\u00E4 realm");
        EXPECT_EQ(TextOf(*scheme), L"basic");
        EXPECT_EQ(*should_continue, 0);
        EXPECT_EQ(TextOf(*username), L"");
        EXPECT_EQ(TextOf(*password), L"");
      });
  EXPECT_TRUE(Ask(kProxy));
  EXPECT_EQ(host_->exchanges, (std::vector<bool>{true, false}));
}

TEST_F(CredentialsTest, AreThoseThatTheHostTells) {
  Answer(VARIANT_TRUE, L"us\u00E4r", L"p\u4E2D\"\\ ");
  EXPECT_TRUE(Ask(kProxy));
  ExpectContinued(L"us\u00E4r", L"p\u4E2D\"\\ ");
}

TEST_F(CredentialsTest, AreToldWhenTheNotificationIsOver) {
  Answer(VARIANT_TRUE, L"u", L"p");
  callback_->on_answer = [&] { EXPECT_FALSE(host_->processing); };
  EXPECT_TRUE(Ask(kProxy));
  ExpectContinued(L"u", L"p");
}

TEST_F(CredentialsTest, MayBeEmpty) {
  Answer(VARIANT_TRUE);
  EXPECT_TRUE(Ask(kProxy));
  ExpectContinued(L"", L"");
}

TEST_F(CredentialsTest, MayBeMissing) {
  EXPECT_CALL(*host_, GetAuthCredentialsNotify(window(), _, _, _, _, _, _, _, _, _))
      .WillOnce([](HWND, BSTR*, VARIANT_BOOL*, BSTR*, long, BSTR*, BSTR*, VARIANT_BOOL* proceed,
                   BSTR* username, BSTR* password) {
        *proceed = VARIANT_TRUE;
        for (BSTR* const text : {username, password}) {
          SysFreeString(*text);
          *text = nullptr;
        }
      });
  EXPECT_TRUE(Ask(kProxy));
  ExpectContinued(L"", L"");
}

TEST_F(CredentialsTest, MayBeOfAnyLengthAndHoldAnything) {
  const std::wstring username(1 << 20, L'u');
  const std::wstring password(L"a\0b", 3);
  EXPECT_CALL(*host_, GetAuthCredentialsNotify(window(), _, _, _, _, _, _, _, _, _))
      .WillOnce([&](HWND, BSTR*, VARIANT_BOOL*, BSTR*, long, BSTR* realm, BSTR*,
                    VARIANT_BOOL* proceed, BSTR* name, BSTR* secret) {
        EXPECT_EQ(SysStringLen(*realm), 1u << 20);
        *proceed = VARIANT_TRUE;
        SysReAllocStringLen(name, username.data(), static_cast<UINT>(username.size()));
        SysReAllocStringLen(secret, password.data(), static_cast<UINT>(password.size()));
      });
  EXPECT_TRUE(Ask(kProxy, std::string(1 << 20, 'r')));
  ExpectContinued(username, password);
}

TEST_F(CredentialsTest, AreRefusedByTheHost) {
  Answer(VARIANT_FALSE, L"user", L"password");
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

// Kept: only the automation's own true continues.
TEST_F(CredentialsTest, AreDeliberatelyRefusedByOne) {
  Answer(1, L"user", L"password");
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreDeliberatelyRefusedByTwo) {
  Answer(2, L"user", L"password");
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreRefusedWhenNobodyAnswers) {
  EXPECT_CALL(*host_, GetAuthCredentialsNotify(window(), _, _, _, _, _, _, _, _, _));
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreRefusedWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreRefusedWhileTheHostCloses) {
  host_->closing = true;
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreRefusedForNoBrowser) {
  EXPECT_TRUE(handler_->GetAuthCredentials(nullptr, "", kProxy, "", 0, "", "", callback_));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreRefusedWhenTheNotificationFails) {
  EXPECT_CALL(*host_, GetAuthCredentialsNotify(_, _, _, _, _, _, _, _, _, _))
      .WillOnce([](HWND, BSTR*, VARIANT_BOOL*, BSTR*, long, BSTR*, BSTR*, VARIANT_BOOL* proceed,
                   BSTR*, BSTR*) {
        *proceed = VARIANT_TRUE;
        _com_issue_error(E_OUTOFMEMORY);
      });
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreAskedOfTheHostWhenItsKindIsNotKnown) {
  SetHostKind(L"KzxMeadow2");
  Answer(VARIANT_TRUE, L"u", L"p");
  EXPECT_TRUE(Ask(kProxy));
  ExpectContinued(L"u", L"p");
  EXPECT_THAT(cef_.tasks, IsEmpty());
}

TEST_F(CredentialsTest, AreAskedOfAProviderForEachKnownKindInAnyLetterCase) {
  for (const wchar_t* const kind :
       {L"KzxMeadow", L"kzxquilladdinloaded", L"KZXHARBOR", L"KzxHarbor", L"kzxmEADOW"}) {
    SetHostKind(kind);
    cef_.tasks.clear();
    EXPECT_TRUE(Ask(kProxy));
    ASSERT_EQ(cef_.tasks.size(), 1u) << kind;
    EXPECT_EQ(cef_.tasks[0].thread, TID_UI);
    EXPECT_EQ(cef_.tasks[0].delay_ms, 0);
  }
}

TEST_F(CredentialsTest, WaitForTheProvider) {
  SetHostKind(L"KzxMeadow");
  EXPECT_TRUE(Ask(kProxy));
  EXPECT_EQ(callback_->cancel_count, 0);
  EXPECT_THAT(callback_->continuations, IsEmpty());
}

TEST_F(CredentialsTest, AreRefusedWhenTheProviderCannotBeAskedLater) {
  SetHostKind(L"KzxMeadow");
  cef_.post_task_result = false;
  EXPECT_TRUE(Ask(kProxy));
  ExpectCancelled();
}

TEST_F(CredentialsTest, AreRefusedWhenTheProviderIsNeverAsked) {
  SetHostKind(L"KzxMeadow");
  EXPECT_TRUE(Ask(kProxy));
  cef_.tasks.clear();
  ExpectCancelled();
}

TEST(AuthAnswer, IsGivenOnce) {
  const CefRefPtr<recording_cef::FakeAuthCallback> callback = new recording_cef::FakeAuthCallback;
  {
    AuthAnswer answer(callback);
    answer.Continue("u", "p");
    answer.Continue("v", "q");
  }
  EXPECT_EQ(callback->continuations.size(), 1u);
  EXPECT_EQ(callback->cancel_count, 0);
  EXPECT_TRUE(callback->HasOneRef());
}

TEST(AuthAnswer, IsNoLongerOwedWhenItWasHandedOver) {
  const CefRefPtr<recording_cef::FakeAuthCallback> callback = new recording_cef::FakeAuthCallback;
  AuthAnswer answer(callback);
  {
    const AuthAnswer taken(std::move(answer));
    EXPECT_EQ(callback->cancel_count, 0);
  }
  EXPECT_EQ(callback->cancel_count, 1);
}

TEST(AuthAnswer, MayFail) {
  const CefRefPtr<recording_cef::FakeAuthCallback> callback = new recording_cef::FakeAuthCallback;
  callback->on_answer = [] { throw std::bad_alloc(); };
  { const AuthAnswer answer(callback); }
  EXPECT_EQ(callback->cancel_count, 1);
}

TEST(AuthAnswer, MayHaveNobodyToHearIt) {
  AuthAnswer answer(nullptr);
  answer.Continue("u", "p");
}

}  // namespace
}  // namespace kzcef
