#include "devtools/page_queries.h"

#include <algorithm>

#include "base64.h"
#include "devtools/base64_bytes.h"
#include "devtools/browser_core.h"
#include "devtools/json_fields.h"
#include "devtools/random_token.h"
#include "devtools/renderer_message.h"

namespace cefedition {
namespace {

// The message router's own names for the messages of its default configuration.
constexpr char kQueryMessage[] = "cefQueryMsg";
constexpr char kCancelMessage[] = "cefQueryCancelMsg";
constexpr int kAllRequests = 0;

// Everything it uses later is taken before the page can change it.
constexpr char kScript[] = R"(((bindingName, secret) => {
  'use strict';
  const send = globalThis[bindingName];
  delete globalThis[bindingName];
  if (typeof send !== 'function') return;
  const {apply} = Reflect;
  const {defineProperty} = Object;
  const {stringify} = JSON;
  const {bind} = Function.prototype;
  const {subarray} = Uint8Array.prototype;
  const {charCodeAt, toWellFormed} = String.prototype;
  const {fromCharCode} = String;
  const byteLength = Object.getOwnPropertyDescriptor(ArrayBuffer.prototype, 'byteLength').get;
  const [Bytes, Buffer, Failure] = [Uint8Array, ArrayBuffer, Error];
  const [encode, decode, later] = [btoa, atob, queueMicrotask];
  const pending = {__proto__: null};
  let last = 0;

  const refuse = what => { throw new Failure('Invalid arguments; ' + what); };
  const member = (object, name, type, check) => {
    let value;
    try {
      value = object[name];
    } catch {
      refuse(`object member '${name}' is required`);
    }
    if (!check(value)) refuse(`object member '${name}' must have type ${type}`);
    return value;
  };
  const optional = (object, name, type) =>
    name in object ? member(object, name, type, value => typeof value === type) : undefined;
  const isBuffer = value => {
    try {
      apply(byteLength, value, []);
      return true;
    } catch {
      return false;
    }
  };
  const toBase64 = buffer => {
    if (apply(byteLength, buffer, []) === 0) return '';
    const bytes = new Bytes(buffer);
    let text = '';
    for (let i = 0; i < bytes.length; i += 8192) {
      text += apply(fromCharCode, undefined, apply(subarray, bytes, [i, i + 8192]));
    }
    return encode(text);
  };
  const fromBase64 = text => {
    const characters = decode(text);
    const buffer = new Buffer(characters.length);
    const bytes = new Bytes(buffer);
    for (let i = 0; i < characters.length; ++i) bytes[i] = apply(charCodeAt, characters, [i]);
    return buffer;
  };

  const answer = (id, kind, first, second) => {
    const query = pending[id];
    if (!query) return;
    if (!query.persistent || kind === 'failure') delete pending[id];
    const callback = kind === 'failure' ? query.onFailure : query.onSuccess;
    if (!callback) return;
    const values = kind === 'failure' ? [first, second] :
                   [kind === 'bytes' ? fromBase64(first) : first];
    // What the page throws is its own error, told to the console as such.
    later(() => { apply(callback, globalThis, values); });
  };

  const functions = {
    cefQuery(...values) {
      if (values.length > 1 && values[0] === secret) {
        answer(values[1], values[2], values[3], values[4]);
        return undefined;
      }
      const query = values[0];
      if (values.length !== 1 || query === null ||
          typeof query !== 'object' && typeof query !== 'function') {
        refuse('expecting a single object');
      }
      const request = member(query, 'request', 'string or ArrayBuffer',
                             value => typeof value === 'string' || isBuffer(value));
      const onSuccess = optional(query, 'onSuccess', 'function');
      const onFailure = optional(query, 'onFailure', 'function');
      const persistent = optional(query, 'persistent', 'boolean') === true;
      const id = ++last;
      pending[id] = {__proto__: null, persistent, onSuccess, onFailure};
      const message = {__proto__: null, kind: 'query', id, persistent};
      if (typeof request === 'string') {
        message.text = apply(toWellFormed, request, []);
      } else {
        message.bytes = toBase64(request);
      }
      send(stringify(message));
      return id;
    },
    cefQueryCancel(...values) {
      const id = values[0];
      if (values.length !== 1 || typeof id !== 'number' || (id | 0) !== id) {
        refuse('expecting a single integer');
      }
      if (!pending[id]) return false;
      delete pending[id];
      send(stringify({__proto__: null, kind: 'cancel', id}));
      return true;
    },
  };
  for (const name of ['cefQuery', 'cefQueryCancel']) {
    // A bound function does not show its text.
    const value = apply(bind, functions[name], [undefined]);
    defineProperty(value, 'name', {value: name});
    defineProperty(globalThis, name, {value});
  }
}))";

// What `cefQuery` hears after the secret and the query's number.
std::string SuccessValues(const CefRefPtr<CefListValue>& arguments) {
  if (arguments->GetType(3) != VTYPE_BINARY) {
    return "'text'," + Json(arguments->GetString(3).ToString()).dump();
  }
  const CefRefPtr<CefBinaryValue> value = arguments->GetBinary(3);
  std::vector<uint8_t> bytes(value->GetSize());
  value->GetData(bytes.data(), bytes.size(), 0);
  return "'bytes','" + Base64Encode(bytes) + "'";
}

std::string FailureValues(const CefRefPtr<CefListValue>& arguments) {
  return "'failure'," + std::to_string(arguments->GetInt(3)) + "," +
         Json(arguments->GetString(4).ToString()).dump();
}

}  // namespace

PageQueries::PageQueries(BrowserCore& core)
    : core_(core), binding_("b" + MakeToken()), secret_(MakeToken()) {}

std::vector<std::pair<std::string, Json>> PageQueries::Commands() const {
  return {
      {"Runtime.addBinding", {{"name", binding_}}},
      {"Page.addScriptToEvaluateOnNewDocument",
       {{"source", std::string(kScript) + "('" + binding_ + "', '" + secret_ + "');"},
        {"runImmediately", true}}},
  };
}

void PageQueries::OnEvent(const ProtocolEvent& event) {
  if (event.method == "Runtime.executionContextDestroyed") {
    if (const auto gone = contexts_.extract(IntField(event.params, "executionContextId"))) {
      Release(gone.mapped());
    }
  } else if (event.method == "Runtime.executionContextsCleared") {
    for (const auto& [number, context] : std::exchange(contexts_, {})) {
      Release(context);
    }
  } else if (event.method == "Runtime.bindingCalled" &&
             TextField(event.params, "name") == binding_) {
    OnCall(event.params);
  }
}

void PageQueries::OnCrashed() {
  contexts_.clear();
}

PageQueries::Context* PageQueries::FindOrAdd(int number) {
  if (const auto found = contexts_.find(number); found != contexts_.end()) {
    return &found->second;
  }
  const ScriptContexts::Context* context = core_.script_contexts().Find(number);
  const CefRefPtr<CefFrame> frame =
      context ? core_.frames().Find(context->frame_id) : CefRefPtr<EditionFrame>();
  if (!frame) {
    return nullptr;
  }
  return &(contexts_[number] = {++last_id_, context->unique_id, frame, {}});
}

void PageQueries::OnCall(const Json& params) {
  const Json call = Json::parse(TextField(params, "payload"), nullptr, /*allow_exceptions=*/false);
  Context* const context = FindOrAdd(IntField(params, "executionContextId"));
  if (!context) {
    return;
  }
  const std::string kind = TextField(call, "kind");
  if (kind == "query") {
    OnQuery(*context, call);
  } else if (kind == "cancel" && context->pending.erase(IntField(call, "id")) > 0) {
    Cancel(*context, IntField(call, "id"));
  }
}

void PageQueries::OnQuery(Context& context, const Json& call) {
  const int request = IntField(call, "id");
  const bool persistent = BoolField(call, "persistent");
  CefRefPtr<CefListValue> arguments = CefListValue::Create();
  arguments->SetInt(0, context.id);
  arguments->SetInt(1, request);
  if (call.contains("bytes")) {
    const std::vector<uint8_t> bytes = DecodeBase64(TextField(call, "bytes"));
    // Values cannot hold no bytes; they travel as an empty text.
    arguments->SetString(2, CefString());
    arguments->SetBinary(2, CefBinaryValue::Create(bytes.data(), bytes.size()));
  } else {
    arguments->SetString(2, TextField(call, "text"));
  }
  arguments->SetBool(3, persistent);
  context.pending[request] = persistent;
  DeliverFromRenderer(core_, context.frame, kQueryMessage, arguments);
}

void PageQueries::Cancel(const Context& context, int request) {
  CefRefPtr<CefListValue> arguments = CefListValue::Create();
  arguments->SetInt(0, context.id);
  arguments->SetInt(1, request);
  DeliverFromRenderer(core_, context.frame, kCancelMessage, arguments);
}

void PageQueries::Release(const Context& context) {
  if (!context.pending.empty()) {
    Cancel(context, kAllRequests);
  }
}

void PageQueries::OnMessage(const CefRefPtr<CefProcessMessage>& message) {
  const CefRefPtr<CefListValue> arguments = message->GetArgumentList();
  const auto asked = std::find_if(
      contexts_.begin(), contexts_.end(),
      [id = arguments->GetInt(0)](const auto& entry) { return entry.second.id == id; });
  if (message->GetName() != kQueryMessage || asked == contexts_.end()) {
    return;
  }
  Context& context = asked->second;
  const auto query = context.pending.find(arguments->GetInt(1));
  if (query == context.pending.end()) {
    return;
  }
  const bool success = arguments->GetBool(2);
  // Written out one by one: the page may have changed what spreading a list means.
  const std::string call = "cefQuery(" + Json(secret_).dump() + "," + std::to_string(query->first) +
                           "," + (success ? SuccessValues(arguments) : FailureValues(arguments)) +
                           ")";
  if (!success || !query->second) {
    context.pending.erase(query);
  }
  core_.session().Send("Runtime.evaluate",
                       {{"expression", call}, {"uniqueContextId", context.unique_id}});
}

}  // namespace cefedition
