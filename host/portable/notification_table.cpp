// Lists each notification with its parameters, in the order and with the names of the type library.

#include "portable/notification_table.h"

#include <algorithm>

namespace kzhost {
namespace {

constexpr ArgumentInfo In(std::string_view name, ArgumentKind kind) {
  return {name, kind, false};
}

constexpr ArgumentInfo InOut(std::string_view name, ArgumentKind kind) {
  return {name, kind, true};
}

constexpr auto kText = ArgumentKind::kText;
constexpr auto kFlag = ArgumentKind::kFlag;
constexpr auto kNumber = ArgumentKind::kNumber;

constexpr ArgumentInfo kAddressChange[] = {In("NewAddress", kText)};
constexpr ArgumentInfo kBeforePopup[] = {In("URL", kText), InOut("Popup", kFlag),
                                         InOut("Continue", kFlag)};
constexpr ArgumentInfo kLoadEnd[] = {In("httpStatus", kNumber)};
constexpr ArgumentInfo kLoadStart[] = {In("TransitionType", kNumber)};
constexpr ArgumentInfo kLoadingStateChange[] = {In("IsLoading", kFlag), In("CanGoBack", kFlag),
                                                In("CanGoForward", kFlag)};
constexpr ArgumentInfo kBeforeDownload[] = {InOut("DownloadPathName", kText),
                                            InOut("CanBeDownloaded", kFlag),
                                            InOut("ShowSaveAsDialog", kFlag)};
constexpr ArgumentInfo kDownloadCompleted[] = {In("DownloadPathName", kText)};
constexpr ArgumentInfo kBeforeBrowse[] = {In("RequestURL", kText), In("UserGesture", kFlag),
                                          In("IsRedirect", kFlag),
                                          InOut("cancelNavigation", kFlag)};
constexpr ArgumentInfo kResourceRedirect[] = {In("OldURLStr", kText), InOut("NewURLStr", kText),
                                              In("StatusCode", kNumber)};
constexpr ArgumentInfo kResourceResponse[] = {InOut("URLStr", kText), InOut("ModifyRequest", kFlag),
                                              In("ResourceType", kNumber)};
constexpr ArgumentInfo kBeforeResourceLoad[] = {InOut("URLStr", kText),
                                                InOut("requestTypeName", kText)};
constexpr ArgumentInfo kGetAuthCredentials[] = {
    InOut("origin_url", kText),     InOut("isProxy", kFlag),
    InOut("host", kText),           In("port", kNumber),
    InOut("realm", kText),          InOut("scheme", kText),
    InOut("shouldContinue", kFlag), InOut("username", kText),
    InOut("password", kText)};
constexpr ArgumentInfo kResourceLoadComplete[] = {In("RequestURL", kText), In("jsonStr", kText)};
constexpr ArgumentInfo kDownloadUpdated[] = {
    In("DownloadPathName", kText), In("DownloadStatus", kNumber), In("PercentComplete", kNumber)};
constexpr ArgumentInfo kBeforeContextMenu[] = {InOut("ClearModel", kFlag)};
constexpr ArgumentInfo kKeyStroke[] = {In("windowsKeyCode", kNumber),
                                       InOut("isEventHandled", kFlag)};

constexpr NotificationInfo kNotifications[] = {
    {"AddressChangeNotify", kAddressChange},
    {"BeforePopupNotify", kBeforePopup},
    {"LoadEndNotify", kLoadEnd},
    {"LoadStartNotify", kLoadStart},
    {"LoadingStateChangeNotify", kLoadingStateChange},
    {"BrowserCreatedNotify", {}},
    {"BeforeDownloadNotify", kBeforeDownload},
    {"DownloadCompletedNotify", kDownloadCompleted},
    {"BeforeBrowseNotify", kBeforeBrowse},
    {"ResourceRedirectNotify", kResourceRedirect},
    {"ResourceResponseNotify", kResourceResponse},
    {"BeforeResourceLoadNotify", kBeforeResourceLoad},
    {"GetAuthCredentialsNotify", kGetAuthCredentials},
    {"ResourceLoadCompleteNotify", kResourceLoadComplete},
    {"EscapeKeyNotify", {}},
    {"DownloadUpdatedNotify", kDownloadUpdated},
    {"BeforeContextMenuNotify", kBeforeContextMenu},
    {"KeyStrokeNotify", kKeyStroke},
};

}  // namespace

const ArgumentInfo* NotificationInfo::Find(std::string_view argument) const {
  const auto found = std::ranges::find(arguments, argument, &ArgumentInfo::name);
  return found == arguments.end() ? nullptr : &*found;
}

const NotificationInfo* FindNotification(std::string_view name) {
  const auto* found = std::ranges::find(kNotifications, name, &NotificationInfo::name);
  return found == std::end(kNotifications) ? nullptr : found;
}

}  // namespace kzhost
