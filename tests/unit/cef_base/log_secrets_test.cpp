#include "log_secrets.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(LogSecretsTest, OrdinaryMessagesStay) {
  for (const char* text :
       {"", R"({"id":1,"method":"Page.enable","params":{}})", R"({"url":"http://host/a@b?c=d@e"})",
        R"({"text":"authorization needed"})", R"({"username":"somebody"})"}) {
    EXPECT_EQ(WithoutSecrets(text), text);
  }
}

TEST(LogSecretsTest, AnswersToDemandsAreHidden) {
  EXPECT_EQ(WithoutSecrets(R"({"id":7,"method":"Fetch.continueWithAuth","params":)"
                           R"({"authChallengeResponse":{"password":"p","username":"u"}}})"),
            R"({"id":7,"method":"Fetch.continueWithAuth","params":{"authChallengeResponse":***)");
}

TEST(LogSecretsTest, HeadersAreHidden) {
  EXPECT_EQ(WithoutSecrets(R"({"headers":{"Authorization":"Basic eDp5","Host":"h"}})"),
            R"({"headers":{"Authorization":"***","Host":"h"}})");
  EXPECT_EQ(WithoutSecrets(R"({"Proxy-Authorization":"Basic eDp5"})"),
            R"({"Proxy-Authorization":"***"})");
  EXPECT_EQ(WithoutSecrets(R"([{"name":"authorization","value":"a\"b"},{"name":"x"}])"),
            R"([{"name":"authorization","value":"***"},{"name":"x"}])");
  EXPECT_EQ(WithoutSecrets(R"("GET / HTTP/1.1\r\nAuthorization: Basic eDp5\r\nHost: h\r\n")"),
            R"("GET / HTTP/1.1\r\nAuthorization: ***\r\nHost: h\r\n")");
}

TEST(LogSecretsTest, SeveralHeadersAreHidden) {
  EXPECT_EQ(WithoutSecrets(R"({"Authorization":"1","proxy-authorization":"2"})"),
            R"({"Authorization":"***","proxy-authorization":"***"})");
}

TEST(LogSecretsTest, MessagesThatAreCutOffHideWhatIsLeft) {
  EXPECT_EQ(WithoutSecrets(R"({"Authorization":"Basic eD)"), R"({"Authorization":"***)");
  EXPECT_EQ(WithoutSecrets(R"({"Authorization)"), R"({"Authorization)");
  EXPECT_EQ(WithoutSecrets(R"({"Authorization":"a\)"), R"({"Authorization":"***)");
}

TEST(LogSecretsTest, CredentialsInUrlsAreHidden) {
  EXPECT_EQ(WithoutSecrets(R"({"url":"https://u:p@host/path@x"})"),
            R"({"url":"https://***@host/path@x"})");
  EXPECT_EQ(WithoutSecrets("http://a@b"), "http://***@b");
}

}  // namespace
}  // namespace cefedition
