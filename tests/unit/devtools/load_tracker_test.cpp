#include "devtools/load_tracker.h"

#include <gmock/gmock.h>

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LoadTrackerTest : public testing::Test, public LoadTracker::Delegate {
 public:
  void OnLoadingChanged(bool loading) override { Add(loading ? "loading" : "idle"); }
  bool OnNavigationStarting(const NavigationRequest& request) override {
    Add("ask " + request.url + (request.is_redirect ? " redirect" : "") +
        (request.user_gesture ? " gesture" : "") + " " + Hex(request.transition));
    return cancel_;
  }
  void OnDocumentStarted(const std::string& frame_id, uint32_t transition) override {
    Add("start " + frame_id + " " + Hex(transition));
  }
  void OnUrlChanged(const std::string& frame_id, const std::string& url) override {
    Add("address " + frame_id + " " + url);
  }
  void OnDocumentEnded(const std::string& frame_id, int http_status) override {
    Add("end " + frame_id + " " + std::to_string(http_status));
  }
  void OnLoadFailed(const std::string& frame_id,
                    cef_errorcode_t error,
                    const std::string& url) override {
    Add("error " + frame_id + " " + std::to_string(error) + " " + url);
  }
  bool HadRecentInput() const override { return input_; }

 protected:
  void Add(const std::string& text) { events_.push_back(text); }
  static std::string Hex(uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof(text), "%x", value);
    return text;
  }
  /// A navigation of the main frame up to its answer.
  void Begin(const std::string& url, const std::string& loader, int status = 200) {
    tracker_.OnNavigationStarted("m", loader, url, "differentDocument", true);
    tracker_.OnStartedLoading("m");
    tracker_.OnRequest("m", url, true);
    tracker_.OnResponse("m", status, ERR_NONE);
  }

  std::vector<std::string> events_;
  bool cancel_ = false;
  bool input_ = false;
  LoadTracker tracker_{this};
};

TEST_F(LoadTrackerTest, OneLoad) {
  Begin("http://a/", "1");
  tracker_.OnCommitted("m", "http://a/", "", true);
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_, ElementsAre("loading", "ask http://a/ 2000001", "start m 2000001",
                                   "address m http://a/", "end m 200", "idle"));
}

TEST_F(LoadTrackerTest, RefusedCertificateIsTheReasonOfAnAbortion) {
  tracker_.OnNavigationStarted("m", "1", "https://a/", "differentDocument", true);
  tracker_.OnStartedLoading("m");
  tracker_.OnRequest("m", "https://a/", true);
  tracker_.OnCertificateRefused("https://other/", ERR_CERT_DATE_INVALID);
  tracker_.OnCertificateRefused("https://a/", ERR_CERT_AUTHORITY_INVALID);
  tracker_.OnResponse("m", 0, ERR_ABORTED);
  tracker_.OnNavigateFailed("m", "1", "https://a/", ERR_ABORTED);
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_,
              ElementsAre("loading", "ask https://a/ 2000001", "error m -202 https://a/", "idle"));
}

TEST_F(LoadTrackerTest, RefusedCertificateOfAnEarlierHostIsForgotten) {
  tracker_.OnNavigationStarted("m", "1", "https://a/", "differentDocument", true);
  tracker_.OnStartedLoading("m");
  tracker_.OnRequest("m", "https://a/", true);
  tracker_.OnCertificateRefused("https://a/", ERR_CERT_AUTHORITY_INVALID);
  tracker_.OnRequest("m", "https://b/", true);
  tracker_.OnStoppedLoading("m");
  EXPECT_EQ(events_[events_.size() - 2], "error m -3 https://b/");
}

TEST_F(LoadTrackerTest, EndOfTheOldDocumentIsNotTheEndOfTheNewNavigation) {
  Begin("http://a/", "1");
  tracker_.OnCommitted("m", "http://a/", "", true);
  events_.clear();
  Begin("http://b/", "2");
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_, ElementsAre("ask http://b/ 2000001", "end m 200"));
  EXPECT_TRUE(tracker_.IsLoading());
  tracker_.OnCommitted("m", "http://b/", "", true);
  tracker_.OnStoppedLoading("m");
  EXPECT_FALSE(tracker_.IsLoading());
}

TEST_F(LoadTrackerTest, NavigationOfAnotherProgramEndsWithTheOldDocument) {
  Begin("http://a/", "1");
  tracker_.OnCommitted("m", "http://a/", "", true);
  events_.clear();
  tracker_.OnNavigationStarted("m", "2", "mailto:a@b", "differentDocument", true);
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_,
              ElementsAre("ask mailto:a@b 2000001", "end m 200", "error m -3 mailto:a@b", "idle"));
}

TEST_F(LoadTrackerTest, ReplacedNavigationIsAborted) {
  Begin("http://a/", "1");
  events_.clear();
  Begin("http://b/", "2");
  EXPECT_THAT(events_, ElementsAre("error m -3 http://a/", "ask http://b/ 2000001"));
}

TEST_F(LoadTrackerTest, ErrorPageRaisesTheAnswersError) {
  tracker_.OnNavigationStarted("m", "1", "http://a/", "differentDocument", true);
  tracker_.OnRequest("m", "http://a/", true);
  tracker_.OnResponse("m", 0, ERR_FAILED);
  tracker_.OnNavigateFailed("m", "1", "http://a/", ERR_UNSAFE_PORT);
  tracker_.OnCommitted("m", "chrome-error://x", "http://a/", true);
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_,
              ElementsAre("loading", "ask http://a/ 2000001", "error m -312 http://a/", "idle"));
}

TEST_F(LoadTrackerTest, AnswerWithoutDocumentIsAborted) {
  Begin("http://a/", "1", 204);
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_,
              ElementsAre("loading", "ask http://a/ 2000001", "error m -3 http://a/", "idle"));
}

TEST_F(LoadTrackerTest, GestureCountsForThePagesNavigationsOnly) {
  input_ = true;
  Begin("http://a/", "1");
  tracker_.OnRequestedByPage("m", "anchorClick", "http://b/");
  Begin("http://b/", "2");
  EXPECT_THAT(events_, ElementsAre("loading", "ask http://a/ 2000001", "error m -3 http://a/",
                                   "ask http://b/ gesture 0"));
}

TEST_F(LoadTrackerTest, TransitionsByCause) {
  const auto transition = [this](const std::string& reason, const std::string& type, bool main) {
    LoadTracker tracker(this);
    events_.clear();
    if (!reason.empty()) {
      tracker.OnRequestedByPage("f", reason, "http://a/");
    }
    tracker.OnNavigationStarted("f", "1", "http://a/", type, main);
    tracker.OnCommitted("f", "http://a/", "", main);
    return events_[1];
  };
  EXPECT_EQ(transition("", "reload", true), "start f 8");
  EXPECT_EQ(transition("", "reloadBypassingCache", true), "start f 8");
  EXPECT_EQ(transition("reload", "differentDocument", true), "start f 8");
  EXPECT_EQ(transition("formSubmissionPost", "differentDocument", true), "start f 7");
  EXPECT_EQ(transition("metaTagRefresh", "differentDocument", true), "start f 40000000");
  EXPECT_EQ(transition("", "historyDifferentDocument", true), "start f 1000000");
  EXPECT_EQ(transition("initialFrameNavigation", "differentDocument", false), "start f 3");
  EXPECT_EQ(transition("anchorClick", "differentDocument", false), "start f 4");
}

TEST_F(LoadTrackerTest, HostIsAskedOnceWhereNoRequestIsAnnounced) {
  EXPECT_TRUE(tracker_.AskForHost("m", "data:,x"));
  EXPECT_FALSE(tracker_.OnNavigationStarted("m", "1", "data:,x", "differentDocument", true));
  tracker_.OnCommitted("m", "data:,x", "", true);
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_, ElementsAre("loading", "ask data:,x 2000001", "start m 2000001",
                                   "address m data:,x", "end m 0", "idle"));
}

TEST_F(LoadTrackerTest, PagesNavigationWithoutRequestCanBeCancelled) {
  cancel_ = true;
  tracker_.OnRequestedByPage("m", "scriptInitiated", "about:blank");
  EXPECT_TRUE(tracker_.OnNavigationStarted("m", "1", "about:blank", "differentDocument", true));
  tracker_.OnStoppedLoading("m");
  EXPECT_THAT(events_,
              ElementsAre("loading", "ask about:blank 0", "error m -3 about:blank", "idle"));
}

TEST_F(LoadTrackerTest, AllFramesMustStop) {
  Begin("http://a/", "1");
  tracker_.OnCommitted("m", "http://a/", "", true);
  tracker_.OnStartedLoading("s");
  tracker_.OnStoppedLoading("m");
  EXPECT_TRUE(tracker_.IsLoading());
  tracker_.OnFrameRemoved("s");
  EXPECT_FALSE(tracker_.IsLoading());
}

TEST_F(LoadTrackerTest, CrashEndsTheLoading) {
  Begin("http://a/", "1");
  tracker_.OnCrashed();
  EXPECT_EQ(events_.back(), "idle");
  events_.clear();
  tracker_.OnStoppedLoading("m");
  tracker_.OnCrashed();
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(LoadTrackerTest, EventsForUnknownFramesDoNothing) {
  tracker_.OnStoppedLoading("x");
  tracker_.OnResponse("x", 200, ERR_NONE);
  tracker_.OnFrameRemoved("x");
  EXPECT_THAT(events_, IsEmpty());
}

}  // namespace
}  // namespace cefedition
