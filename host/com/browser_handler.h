// The host's handler object, which receives the notifications of one browser.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>
#include <string>

#include "portable/answer_table.h"
#include "portable/notification_log.h"

namespace kzhost {

// Makes an object with IKZCEFComBrowserHandler, -2 and -3 that writes every notification into `log`
// under the name `browser` and sets the in/out arguments as `answers` say. The server calls it on
// the engine's threads, without marshalling; it holds no lock while it runs and waits for nobody.
// `information` is that of IKZCEFComBrowserHandler3. The caller holds one reference.
Microsoft::WRL::ComPtr<IDispatch> MakeBrowserHandler(std::string browser,
                                                     std::shared_ptr<NotificationLog> log,
                                                     std::shared_ptr<AnswerTable> answers,
                                                     Microsoft::WRL::ComPtr<ITypeInfo> information);

}  // namespace kzhost
