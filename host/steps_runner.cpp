// Carries out each kind of step: a call on the server or an action on the host's windows, whose
// outcome is written to the events file and compared with what the step expects.

#include "steps_runner.h"

#include <cstdint>
#include <cstdlib>
#include <utility>

#include "com/dispatch_call.h"
#include "com/variant_json.h"
#include "cookie_steps.h"
#include "input_steps.h"
#include "portable/notification.h"
#include "ui/screenshot.h"
#include "wide_text.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

constexpr char kFirstBrowser[] = "b1";

std::string Quote(const std::string& text) {
  return "\"" + text + "\"";
}

// References such as {"object": name} name one thing each.
bool IsReference(const Json& value, const char* kind) {
  return value.is_object() && value.size() == 1 && value.contains(kind) && value[kind].is_string();
}

}  // namespace

std::optional<StepsError> StepsRunner::Run(const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    if (Failure failure = RunStep(step)) {
      return StepsError{step.line, *std::move(failure)};
    }
    if (quit_) {
      break;
    }
  }
  return std::nullopt;
}

StepsRunner::Failure StepsRunner::RunStep(const Step& step) {
  switch (step.verb) {
    case Verb::kAnswer:
      return Answer(step);
    case Verb::kBrowser:
      return OpenBrowser(step);
    case Verb::kCall:
      return Call(step);
    case Verb::kClick:
      return Click(step);
    case Verb::kClose:
      return Close(step);
    case Verb::kCreate:
      return Create(step);
    case Verb::kGet:
      return Get(step);
    case Verb::kGetAllCookies:
    case Verb::kGetCookies:
    case Verb::kGetCookiesSync:
    case Verb::kSetCookies:
      return Cookies(step);
    case Verb::kGone:
      return Gone(step);
    case Verb::kInit:
      return Init(step);
    case Verb::kLoad:
      return Load(step);
    case Verb::kMark:
      return Mark(step);
    case Verb::kPixel:
      return Pixel(step);
    case Verb::kPut:
      return Put(step);
    case Verb::kQuit:
      quit_ = true;
      return std::nullopt;
    case Verb::kRefresh:
      return Refresh(step);
    case Verb::kResize:
      return Resize(step);
    case Verb::kScreenshot:
      return Screenshot(step);
    case Verb::kScript:
      return Script(step);
    case Verb::kStart:
      return Start(step);
    case Verb::kType:
      return Type(step);
    case Verb::kWait:
      return Wait(step);
    case Verb::kWaitFile:
      return WaitFile(step);
  }
  return "unknown step";
}

StepsRunner::Failure StepsRunner::Answer(const Step& step) {
  Failure failure;
  if (BrowserSession* session = Session(step, failure)) {
    session->answers().Set(
        step.Text("notification"), step.members.value("when", Json::object()),
        {step.members.at("set"), std::chrono::milliseconds(step.Number("delay", 0))});
  }
  return failure;
}

StepsRunner::Failure StepsRunner::OpenBrowser(const Step& step) {
  const std::string name = step.Text("name");
  if (host_.FindObject(name)) {
    return "there is already something called " + Quote(name);
  }
  BrowserSession* session = nullptr;
  HRESULT result = host_.OpenBrowser(name, ToWide(step.Text("url", "about:blank")), session);
  if (FAILED(result)) {
    return "the browser could not be opened: " + DescribeResult(result);
  }
  if (step.Flag("popup", false)) {
    result = host_.calls().PutPopupUserBrowser(session->browser(), true);
    if (FAILED(result)) {
      return Outcome(step, result);
    }
  }
  return step.Flag("start", true) ? Outcome(step, session->Start()) : std::nullopt;
}

StepsRunner::Failure StepsRunner::Call(const Step& step) {
  Failure failure;
  IDispatch* object = Object(step, failure);
  std::vector<Variant> arguments;
  if (!object || (failure = Arguments(step, arguments))) {
    return failure;
  }
  Variant result;
  HRESULT outcome = S_OK;
  Json value;
  const auto call = [&] {
    outcome = CallMethod(object, ToWide(step.Text("member")), arguments, result.Receive());
    value = VariantToJson(result);
    return !step.Has("equals") || (SUCCEEDED(outcome) && value == step.members.at("equals"));
  };
  // Without a time-out of its own the member is called once.
  const bool reached = step.Has("timeout") ? host_.WaitUntil(call, step.Timeout()) : call();
  if ((failure = Outcome(step, outcome, value))) {
    return failure;
  }
  if (step.Has("as")) {
    ComPtr<IDispatch> kept;
    if ((result.vt != VT_DISPATCH && result.vt != VT_UNKNOWN) || !result.punkVal ||
        FAILED(result.punkVal->QueryInterface(IID_PPV_ARGS(&kept)))) {
      return "the result is no object";
    }
    host_.KeepObject(step.Text("as"), std::move(kept));
  }
  if (!reached) {
    return "the result is " + Dump(value);
  }
  return std::nullopt;
}

StepsRunner::Failure StepsRunner::Click(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  const MouseButton button =
      step.Text("button") == "right" ? MouseButton::kRight : MouseButton::kLeft;
  if (session &&
      !PostClick(session->EngineWindow(), button, step.Number("x", 0), step.Number("y", 0))) {
    return "the browser has no window yet";
  }
  return failure;
}

StepsRunner::Failure StepsRunner::Close(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (!session) {
    return failure;
  }
  const std::string name = session->name();
  session->window()->RequestClose();
  if (!host_.WaitUntil([&] { return !host_.FindBrowser(name); }, step.Timeout())) {
    return "the window did not close";
  }
  return std::nullopt;
}

StepsRunner::Failure StepsRunner::Cookies(const Step& step) {
  const CookieOutcome outcome = RunCookieStep(host_, step);
  const Failure failure = Outcome(step, outcome.result, outcome.value);
  return failure ? failure : outcome.complaint;
}

StepsRunner::Failure StepsRunner::Create(const Step& step) {
  ComPtr<IDispatch> object;
  const HRESULT result = host_.server().CreateByName(ToWide(step.Text("class")), object);
  if (Failure failure = Outcome(step, result)) {
    return failure;
  }
  host_.KeepObject(step.Text("as"), std::move(object));
  return std::nullopt;
}

StepsRunner::Failure StepsRunner::Get(const Step& step) {
  Failure failure;
  IDispatch* object = Object(step, failure);
  if (!object) {
    return failure;
  }
  const std::wstring property = ToWide(step.Text("property"));
  HRESULT result = S_OK;
  Json value;
  const auto read = [&] {
    Variant received;
    result = GetProperty(object, property, &received);
    value = VariantToJson(received);
    return !step.Has("equals") || (SUCCEEDED(result) && value == step.members.at("equals"));
  };
  // Without a time-out of its own the property is read once.
  const bool reached = step.Has("timeout") ? host_.WaitUntil(read, step.Timeout()) : read();
  if ((failure = Outcome(step, result, value))) {
    return failure;
  }
  return reached ? std::nullopt : Failure("the property is " + Dump(value));
}

StepsRunner::Failure StepsRunner::Gone(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (session && !host_.WaitUntil([session] { return !session->EngineWindow(); }, step.Timeout())) {
    return "the browser is still there";
  }
  return failure;
}

StepsRunner::Failure StepsRunner::Init(const Step& step) {
  const Json settings = step.members.value("settings", Json::object());
  for (const auto& [name, value] : settings.items()) {
    const HRESULT result = PutProperty(host_.settings(), ToWide(name), JsonToVariant(value));
    if (FAILED(result)) {
      return "the setting " + Quote(name) + ": " + DescribeResult(result);
    }
  }
  const Json switches = step.members.value("switches", Json::object());
  for (const auto& [name, value] : switches.items()) {
    const HRESULT result =
        host_.calls().AddSwitch(host_.settings(), ToWide(name), ToWide(value.get<std::string>()));
    if (FAILED(result)) {
      return "the switch " + Quote(name) + ": " + DescribeResult(result);
    }
  }
  return Outcome(step, host_.StartEngine());
}

StepsRunner::Failure StepsRunner::Load(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (!session) {
    return failure;
  }
  // S_FALSE means that the address is only kept for a later start.
  const HRESULT result = host_.calls().PutUrl(session->browser(), ToWide(step.Text("url")));
  return Outcome(step, result, nullptr, S_OK);
}

StepsRunner::Failure StepsRunner::Mark(const Step& step) {
  Failure failure;
  if (BrowserSession* session = Session(step, failure)) {
    session->cursor = host_.log().NextSequence();
  }
  return failure;
}

StepsRunner::Failure StepsRunner::Pixel(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (!session) {
    return failure;
  }
  const int x = step.Number("x", 0);
  const int y = step.Number("y", 0);
  const int tolerance = step.Number("tolerance", 8);
  const Colour wanted = ReadColour(step.Text("colour"));
  COLORREF seen = CLR_INVALID;
  const auto near_to = [tolerance](int a, int b) { return std::abs(a - b) <= tolerance; };
  session->window()->BringForward();
  const bool reached = host_.WaitUntil(
      [&] {
        seen = TakePicture(session->window()->view()).At(x, y);
        return seen != CLR_INVALID && near_to(GetRValue(seen), wanted.red) &&
               near_to(GetGValue(seen), wanted.green) && near_to(GetBValue(seen), wanted.blue);
      },
      step.Timeout());
  if (reached) {
    return std::nullopt;
  }
  return seen == CLR_INVALID
             ? "the view has no such pixel"
             : "the pixel is red " + std::to_string(GetRValue(seen)) + ", green " +
                   std::to_string(GetGValue(seen)) + ", blue " + std::to_string(GetBValue(seen));
}

StepsRunner::Failure StepsRunner::Put(const Step& step) {
  Failure failure;
  IDispatch* object = Object(step, failure);
  if (!object) {
    return failure;
  }
  return Outcome(step, PutProperty(object, ToWide(step.Text("property")),
                                   JsonToVariant(step.members.at("value"))));
}

StepsRunner::Failure StepsRunner::Refresh(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (!session) {
    return failure;
  }
  return Outcome(step, host_.calls().Refresh(session->browser(), step.Flag("ignoreCache", false)));
}

StepsRunner::Failure StepsRunner::Resize(const Step& step) {
  Failure failure;
  if (BrowserSession* session = Session(step, failure)) {
    session->window()->ResizeView(step.Number("width", 0), step.Number("height", 0));
  }
  return failure;
}

StepsRunner::Failure StepsRunner::Screenshot(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (!session) {
    return failure;
  }
  session->window()->BringForward();
  // Lets the windows draw what has come to the front.
  host_.WaitUntil([] { return true; }, std::chrono::milliseconds(0));
  const bool only_view = step.Text("area", "window") == "view";
  const Picture picture =
      TakePicture(only_view ? session->window()->view() : session->window()->hwnd());
  const HRESULT result = SavePng(picture, ToWide(step.Text("file")));
  return FAILED(result) ? Failure("the picture could not be saved: " + DescribeResult(result))
                        : std::nullopt;
}

StepsRunner::Failure StepsRunner::Script(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (!session) {
    return failure;
  }
  return Outcome(step, host_.calls().ExecuteJs(session->browser(), ToWide(step.Text("code"))));
}

StepsRunner::Failure StepsRunner::Start(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  return session ? Outcome(step, session->Start()) : failure;
}

StepsRunner::Failure StepsRunner::Type(const Step& step) {
  Failure failure;
  BrowserSession* session = Session(step, failure);
  if (session && !PostText(session->EngineWindow(), ToWide(step.Text("text")))) {
    return "the browser has no window yet";
  }
  return failure;
}

StepsRunner::Failure StepsRunner::Wait(const Step& step) {
  Failure failure;
  if (!Session(step, failure)) {
    return failure;
  }
  const std::string browser = step.Text("browser", kFirstBrowser);
  const std::string notification = step.Text("notification");
  const Json conditions = step.members.value("where", Json::object());
  std::optional<Notification> found;
  bool closed = false;
  host_.WaitUntil(
      [&] {
        BrowserSession* session = host_.FindBrowser(browser);
        closed = !session;
        if (session &&
            (found = host_.log().Find(session->cursor, browser, notification, conditions))) {
          session->cursor = found->sequence + 1;
        }
        return found || closed;
      },
      step.Timeout());
  if (found) {
    return std::nullopt;
  }
  const std::string wanted = notification + (conditions.empty() ? "" : " with " + Dump(conditions));
  return closed ? "the window was closed before " + wanted + " arrived"
                : wanted + " did not arrive";
}

StepsRunner::Failure StepsRunner::WaitFile(const Step& step) {
  const std::wstring path = ToWide(step.Text("path"));
  const bool there = host_.WaitUntil(
      [&path] { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; },
      step.Timeout());
  return there ? std::nullopt : Failure("the file did not appear");
}

BrowserSession* StepsRunner::Session(const Step& step, Failure& failure) const {
  const std::string name = step.Text("browser", kFirstBrowser);
  BrowserSession* session = host_.FindBrowser(name);
  if (!session) {
    failure = "there is no browser " + Quote(name);
  }
  return session;
}

IDispatch* StepsRunner::Object(const Step& step, Failure& failure) const {
  const std::string name = step.Text("object");
  IDispatch* object = host_.FindObject(name);
  if (!object) {
    failure = "there is no object " + Quote(name);
  }
  return object;
}

StepsRunner::Failure StepsRunner::Arguments(const Step& step,
                                            std::vector<Variant>& arguments) const {
  const Json values = step.members.value("args", Json::array());
  for (const Json& value : values) {
    if (Failure failure = Argument(value, arguments.emplace_back())) {
      return failure;
    }
  }
  return std::nullopt;
}

StepsRunner::Failure StepsRunner::Argument(const Json& value, Variant& argument) const {
  if (!value.is_object()) {
    argument = JsonToVariant(value);
    return std::nullopt;
  }
  if (IsReference(value, "object")) {
    const auto name = value["object"].get<std::string>();
    IDispatch* object = host_.FindObject(name);
    if (!object) {
      return "there is no object " + Quote(name);
    }
    argument = ObjectVariant(object);
    return std::nullopt;
  }
  if (IsReference(value, "view")) {
    const auto name = value["view"].get<std::string>();
    const BrowserSession* session = host_.FindBrowser(name);
    if (!session) {
      return "there is no browser " + Quote(name);
    }
    argument = HandleVariant(session->window()->view());
    return std::nullopt;
  }
  return R"(an argument that is an object must be {"object": name} or {"view": browser})";
}

StepsRunner::Failure StepsRunner::Outcome(const Step& step,
                                          HRESULT result,
                                          const Json& value,
                                          std::optional<HRESULT> usual) const {
  Json record = {{"step", step.line}, {"do", step.Text("do")}};
  for (const char* name : {"browser", "object", "member", "property"}) {
    if (step.Has(name)) {
      record[name] = step.members.at(name);
    }
  }
  record["hresult"] = result;
  record["result"] = value;
  host_.log().AddRecord(std::move(record));

  if (step.Has("hresult")) {
    // Written as signed or unsigned: both mean the same 32 bits.
    const auto wanted = static_cast<HRESULT>(step.members.at("hresult").get<std::int64_t>());
    usual = wanted;
  }
  const bool as_wanted = usual ? result == *usual : SUCCEEDED(result);
  return as_wanted ? std::nullopt : Failure("the call answered " + DescribeResult(result));
}

}  // namespace kzhost
