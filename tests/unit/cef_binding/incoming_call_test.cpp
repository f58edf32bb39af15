// What happens when the engine calls this side: arguments, results, counts, and exceptions.

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "counted_struct.h"
#include "include/cef_browser.h"
#include "include/cef_client.h"
#include "include/cef_cookie.h"
#include "include/cef_resource_handler.h"
#include "settings.h"

namespace cefbinding {
namespace {

cef_string_utf16_t Text(const std::u16string& text) {
  return {const_cast<char16_t*>(text.data()), text.size(), nullptr};
}

// A client whose handlers do what the test says.
class Client final : public CefClient,
                     public CefDisplayHandler,
                     public CefDownloadHandler,
                     public CefDragHandler,
                     public CefLifeSpanHandler,
                     public CefRequestHandler {
 public:
  explicit Client(bool* gone = nullptr) : gone_(gone) {}
  ~Client() override {
    if (gone_) {
      *gone_ = true;
    }
  }

  std::function<void(CefRefPtr<CefBrowser>)> on_after_created;
  std::function<void(const CefString&)> on_title;
  std::function<bool(CefWindowInfo&, CefRefPtr<CefClient>&, CefRefPtr<CefDictionaryValue>&, bool*)>
      on_before_popup;
  std::vector<CefDraggableRegion> regions;
  std::vector<CefString> icons;
  size_t certificates = 0;
  cef_termination_status_t status = TS_PROCESS_OOM;

  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return this; }

  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override { on_after_created(browser); }
  void OnTitleChange(CefRefPtr<CefBrowser>, const CefString& title) override { on_title(title); }
  void OnFaviconURLChange(CefRefPtr<CefBrowser>, const std::vector<CefString>& urls) override {
    icons = urls;
  }
  bool OnTooltip(CefRefPtr<CefBrowser>, CefString& text) override {
    text = text.ToString() + "!";
    return true;
  }
  void OnBeforeDownload(CefRefPtr<CefBrowser>,
                        CefRefPtr<CefDownloadItem>,
                        const CefString&,
                        CefRefPtr<CefBeforeDownloadCallback>) override {}
  void OnDraggableRegionsChanged(CefRefPtr<CefBrowser>,
                                 CefRefPtr<CefFrame>,
                                 const std::vector<CefDraggableRegion>& changed) override {
    regions = changed;
  }
  bool OnBeforePopup(CefRefPtr<CefBrowser>,
                     CefRefPtr<CefFrame>,
                     const CefString&,
                     const CefString&,
                     cef_window_open_disposition_t,
                     bool,
                     const CefPopupFeatures&,
                     CefWindowInfo& info,
                     CefRefPtr<CefClient>& client,
                     CefBrowserSettings&,
                     CefRefPtr<CefDictionaryValue>& extra,
                     bool* no_javascript_access) override {
    return on_before_popup(info, client, extra, no_javascript_access);
  }
  bool OnSelectClientCertificate(CefRefPtr<CefBrowser>,
                                 bool,
                                 const CefString&,
                                 int,
                                 const X509CertificateList& list,
                                 CefRefPtr<CefSelectClientCertificateCallback>) override {
    certificates = list.size();
    return true;
  }

 private:
  bool* const gone_;

  IMPLEMENT_REFCOUNTING(Client);
};

// A handler of `client` as the engine holds it, with one reference for the test.
template <class Handler>
StructOf<Handler>* Held(const CefRefPtr<Client>& client) {
  return ClientObject<Handler>::Wrap(client.get());
}

template <class Struct>
void Drop(Struct* structure) {
  BaseOf(structure)->release(BaseOf(structure));
}

class IncomingCallTest : public testing::Test {
 protected:
  ~IncomingCallTest() override { EXPECT_EQ(LiveObjects(), at_first_); }

 private:
  const LiveObjects at_first_;
};

TEST_F(IncomingCallTest, EngineKeepsTheObjectUntilItsLastRelease) {
  bool gone = false;
  capi::cef_client_t* const held = Held<CefClient>(new Client(&gone));
  BaseOf(held)->add_ref(BaseOf(held));
  EXPECT_FALSE(BaseOf(held)->has_one_ref(BaseOf(held)));
  EXPECT_TRUE(BaseOf(held)->has_at_least_one_ref(BaseOf(held)));
  EXPECT_FALSE(BaseOf(held)->release(BaseOf(held)));
  EXPECT_TRUE(BaseOf(held)->has_one_ref(BaseOf(held)));
  EXPECT_FALSE(gone);
  EXPECT_TRUE(BaseOf(held)->release(BaseOf(held)));
  EXPECT_TRUE(gone);
}

TEST_F(IncomingCallTest, StructureSaysItsOwnSize) {
  capi::cef_client_t* const held = Held<CefClient>(new Client);
  EXPECT_EQ(held->base.size, sizeof(capi::cef_client_t));
  Drop(held);
}

TEST_F(IncomingCallTest, ObjectArgumentIsReleasedOnceAfterTheCall) {
  CountedStruct<capi::cef_browser_t> browser;
  const CefRefPtr<Client> client = new Client;
  int calls = 0;
  client->on_after_created = [&](CefRefPtr<CefBrowser> given) {
    ++calls;
    EXPECT_TRUE(given);
    EXPECT_EQ(browser.references, 1);
  };
  capi::cef_life_span_handler_t* const held = Held<CefLifeSpanHandler>(client);
  held->on_after_created(held, browser.Give());
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(browser.references, 0);
  Drop(held);
}

TEST_F(IncomingCallTest, ObjectThatTheHandlerKeepsIsReleasedWhenItLetsGo) {
  CountedStruct<capi::cef_browser_t> browser;
  CefRefPtr<CefBrowser> kept;
  const CefRefPtr<Client> client = new Client;
  client->on_after_created = [&](CefRefPtr<CefBrowser> given) { kept = given; };
  capi::cef_life_span_handler_t* const held = Held<CefLifeSpanHandler>(client);
  held->on_after_created(held, browser.Give());
  EXPECT_EQ(browser.references, 1);
  kept = nullptr;
  EXPECT_EQ(browser.references, 0);
  Drop(held);
}

TEST_F(IncomingCallTest, NullObjectArrivesAsNull) {
  const CefRefPtr<Client> client = new Client;
  bool was_null = false;
  client->on_after_created = [&](CefRefPtr<CefBrowser> given) { was_null = !given; };
  capi::cef_life_span_handler_t* const held = Held<CefLifeSpanHandler>(client);
  held->on_after_created(held, nullptr);
  EXPECT_TRUE(was_null);
  Drop(held);
}

TEST_F(IncomingCallTest, ExceptionEndsInTheBindingAndLeaksNothing) {
  CountedStruct<capi::cef_browser_t> browser;
  const CefRefPtr<Client> client = new Client;
  client->on_after_created = [](CefRefPtr<CefBrowser>) { throw std::runtime_error("a test's"); };
  client->on_title = [](const CefString&) { throw 1; };
  client->on_before_popup = [](auto&&...) -> bool { throw std::bad_alloc(); };
  capi::cef_life_span_handler_t* const life_span = Held<CefLifeSpanHandler>(client);
  life_span->on_after_created(life_span, browser.Give());
  capi::cef_display_handler_t* const display = Held<CefDisplayHandler>(client);
  display->on_title_change(display, browser.Give(), nullptr);
  EXPECT_EQ(life_span->on_before_popup(life_span, browser.Give(), nullptr, 1, nullptr, nullptr, 0,
                                       0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            0);
  EXPECT_EQ(browser.references, 0);
  Drop(life_span);
  Drop(display);
}

TEST_F(IncomingCallTest, TextArrivesWhole) {
  const CefRefPtr<Client> client = new Client;
  std::u16string title;
  client->on_title = [&](const CefString& given) { title = given.ToString16(); };
  capi::cef_display_handler_t* const held = Held<CefDisplayHandler>(client);
  for (const std::u16string& sent :
       {std::u16string(), std::u16string(1'000'000, u'x'), std::u16string{u'a', 0, u'b'},
        std::u16string{0xD800}, std::u16string{0xDC00, 0xD800}}) {
    const cef_string_utf16_t text = Text(sent);
    held->on_title_change(held, nullptr, const_cast<cef_string_utf16_t*>(&text));
    EXPECT_EQ(title, sent);
  }
  title = u"before";
  held->on_title_change(held, nullptr, nullptr);
  EXPECT_EQ(title, u"");
  Drop(held);
}

TEST_F(IncomingCallTest, TextIsChangedInPlace) {
  capi::cef_display_handler_t* const held = Held<CefDisplayHandler>(new Client);
  cef_string_utf16_t text = {};
  cef_string_utf16_set(u"tip", 3, &text, true);
  EXPECT_EQ(held->on_tooltip(held, nullptr, &text), 1);
  EXPECT_EQ(std::u16string(text.str, text.length), u"tip!");
  cef_string_utf16_clear(&text);
  Drop(held);
}

TEST_F(IncomingCallTest, ListAndArraysArriveInOrder) {
  const CefRefPtr<Client> client = new Client;
  capi::cef_display_handler_t* const display = Held<CefDisplayHandler>(client);
  const EngineTexts<TextList> list({"a", "", "c"});
  display->on_favicon_urlchange(display, nullptr, list.get());
  EXPECT_EQ(client->icons, (TextList{"a", "", "c"}));
  display->on_favicon_urlchange(display, nullptr, nullptr);
  EXPECT_TRUE(client->icons.empty());
  Drop(display);

  capi::cef_drag_handler_t* const drag = Held<CefDragHandler>(client);
  cef_draggable_region_t regions[] = {{{1, 2, 3, 4}, 1}, {{5, 6, 7, 8}, 0}};
  drag->on_draggable_regions_changed(drag, nullptr, nullptr, std::size(regions), regions);
  ASSERT_EQ(client->regions.size(), 2u);
  EXPECT_EQ(client->regions[1].bounds.height, 8);
  drag->on_draggable_regions_changed(drag, nullptr, nullptr, 0, nullptr);
  EXPECT_TRUE(client->regions.empty());
  Drop(drag);
}

TEST_F(IncomingCallTest, EachObjectOfAnArrayIsReleasedOnce) {
  CountedStruct<capi::cef_x509certificate_t> first;
  CountedStruct<capi::cef_x509certificate_t> second;
  const CefRefPtr<Client> client = new Client;
  capi::cef_request_handler_t* const held = Held<CefRequestHandler>(client);
  capi::cef_x509certificate_t* list[] = {first.Give(), second.Give()};
  CountedStruct<capi::cef_select_client_certificate_callback_t> callback;
  EXPECT_EQ(
      held->on_select_client_certificate(held, nullptr, 0, nullptr, 443, 2, list, callback.Give()),
      1);
  EXPECT_EQ(client->certificates, 2u);
  EXPECT_EQ(first.references, 0);
  EXPECT_EQ(second.references, 0);
  EXPECT_EQ(callback.references, 0);
  Drop(held);
}

// What the engine gives for OnBeforePopup, and what comes back.
struct PopupCall {
  capi::cef_window_info_t info = {};
  capi::cef_client_t* client = nullptr;
  capi::cef_dictionary_value_t* extra = nullptr;
  int no_access = 0;

  int Make(capi::cef_life_span_handler_t* held) {
    return held->on_before_popup(held, nullptr, nullptr, 7, nullptr, nullptr, 0, 0, nullptr, &info,
                                 &client, nullptr, &extra, &no_access);
  }
};

TEST_F(IncomingCallTest, InOutArgumentsComeBack) {
  const CefRefPtr<Client> client = new Client;
  const CefRefPtr<Client> other = new Client;
  client->on_before_popup = [&](CefWindowInfo& info, CefRefPtr<CefClient>& place,
                                CefRefPtr<CefDictionaryValue>&, bool* no_access) {
    EXPECT_FALSE(*no_access);
    info.bounds = {1, 2, 3, 4};
    CefString(&info.window_name).FromString(std::string("popup"));
    place = other;
    *no_access = true;
    return true;
  };
  capi::cef_life_span_handler_t* const held = Held<CefLifeSpanHandler>(client);
  PopupCall call;
  EXPECT_EQ(call.Make(held), 1);
  EXPECT_EQ(call.info.bounds.width, 3);
  EXPECT_EQ(CefString(&call.info.window_name).ToString(), "popup");
  EXPECT_EQ(call.no_access, 1);
  ASSERT_TRUE(call.client);
  EXPECT_EQ(ClientObject<CefClient>::ObjectOf(call.client).get(), other.get());
  Drop(call.client);
  cef_string_utf16_clear(&call.info.window_name);
  Drop(held);
}

TEST_F(IncomingCallTest, ObjectLeftInPlaceStaysTheEngines) {
  bool gone = false;
  const CefRefPtr<Client> client = new Client;
  client->on_before_popup = [](auto&&...) { return false; };
  capi::cef_life_span_handler_t* const held = Held<CefLifeSpanHandler>(client);
  PopupCall call;
  capi::cef_client_t* const given = Held<CefClient>(new Client(&gone));
  // The call carries a reference of its own.
  BaseOf(given)->add_ref(BaseOf(given));
  call.client = given;
  CountedStruct<capi::cef_dictionary_value_t> extra;
  call.extra = extra.Give();
  call.Make(held);
  EXPECT_EQ(call.client, given);
  EXPECT_EQ(extra.references, 0);
  EXPECT_FALSE(gone);
  Drop(given);
  EXPECT_TRUE(gone);
  Drop(held);
}

TEST_F(IncomingCallTest, ClearedObjectComesBackAsNull) {
  const CefRefPtr<Client> client = new Client;
  client->on_before_popup = [](CefWindowInfo&, CefRefPtr<CefClient>& place, auto&&...) {
    place = nullptr;
    return false;
  };
  capi::cef_life_span_handler_t* const held = Held<CefLifeSpanHandler>(client);
  PopupCall call;
  call.client = Held<CefClient>(new Client);
  call.Make(held);
  EXPECT_EQ(call.client, nullptr);
  Drop(held);
}

TEST_F(IncomingCallTest, HandlerThatIsAskedForCarriesAReference) {
  bool gone = false;
  capi::cef_client_t* const held = Held<CefClient>(new Client(&gone));
  auto* const handler =
      reinterpret_cast<capi::cef_life_span_handler_t*>(held->get_life_span_handler(held));
  ASSERT_TRUE(handler);
  EXPECT_EQ(held->get_load_handler(held), 0u);
  Drop(held);
  EXPECT_FALSE(gone);
  Drop(handler);
  EXPECT_TRUE(gone);
}

TEST_F(IncomingCallTest, StructureOfSomebodyElseIsNoObjectOfThisSide) {
  CountedStruct<capi::cef_client_t> foreign;
  EXPECT_FALSE(Rewrap<CefClient>(&foreign));
  EXPECT_FALSE(Rewrap<CefClient>(nullptr));
}

// ---- in/out numbers, by the handler that has most of them ----

class Body final : public CefResourceHandler {
 public:
  bool Open(CefRefPtr<CefRequest>, bool& handle_request, CefRefPtr<CefCallback>) override {
    handle_request = true;
    return true;
  }
  void GetResponseHeaders(CefRefPtr<CefResponse>, int64_t& length, CefString& redirect) override {
    length = int64_t{1} << 40;
    redirect = "http://a.test/";
  }
  bool Read(void* data, int size, int& read, CefRefPtr<CefResourceReadCallback>) override {
    read = size / 2;
    static_cast<char*>(data)[0] = 'x';
    return true;
  }
  void Cancel() override {}

 private:
  IMPLEMENT_REFCOUNTING(Body);
};

TEST_F(IncomingCallTest, NumbersAreSetWhereTheEngineWantsThem) {
  capi::cef_resource_handler_t* const held = ClientObject<CefResourceHandler>::Wrap(new Body);
  int handle = 0;
  EXPECT_EQ(held->open(held, nullptr, &handle, nullptr), 1);
  EXPECT_EQ(handle, 1);
  int64_t length = 0;
  cef_string_utf16_t redirect = {};
  held->get_response_headers(held, nullptr, &length, &redirect);
  EXPECT_EQ(length, int64_t{1} << 40);
  EXPECT_EQ(CefString(&redirect).ToString(), "http://a.test/");
  cef_string_utf16_clear(&redirect);
  char data[2] = {};
  int read = 0;
  EXPECT_EQ(held->read(held, data, 2, &read, nullptr), 1);
  EXPECT_EQ(read, 1);
  EXPECT_EQ(data[0], 'x');
  Drop(held);
}

}  // namespace
}  // namespace cefbinding
