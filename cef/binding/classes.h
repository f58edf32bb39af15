// Every class that crosses the border, its structure, and the side on which its objects live.
#pragma once

#include "counterpart.h"

class CefApp;
class CefAuthCallback;
class CefBeforeDownloadCallback;
class CefBinaryValue;
class CefBrowser;
class CefBrowserHost;
class CefBrowserProcessHandler;
class CefCallback;
class CefClient;
class CefCommandLine;
class CefCompletionCallback;
class CefContextMenuHandler;
class CefContextMenuParams;
class CefCookieAccessFilter;
class CefCookieManager;
class CefCookieVisitor;
class CefDeleteCookiesCallback;
class CefDevToolsMessageObserver;
class CefDictionaryValue;
class CefDisplayHandler;
class CefDownloadHandler;
class CefDownloadImageCallback;
class CefDownloadItem;
class CefDownloadItemCallback;
class CefDragData;
class CefDragHandler;
class CefFocusHandler;
class CefFrame;
class CefImage;
class CefJSDialogCallback;
class CefJSDialogHandler;
class CefKeyboardHandler;
class CefLifeSpanHandler;
class CefListValue;
class CefLoadHandler;
class CefMenuModel;
class CefMenuModelDelegate;
class CefPostData;
class CefPostDataElement;
class CefPreferenceManager;
class CefProcessMessage;
class CefReadHandler;
class CefRegistration;
class CefRenderProcessHandler;
class CefRequest;
class CefRequestContext;
class CefRequestHandler;
class CefResourceHandler;
class CefResourceReadCallback;
class CefResourceRequestHandler;
class CefResourceSkipCallback;
class CefResponse;
class CefResponseFilter;
class CefRunContextMenuCallback;
class CefSSLInfo;
class CefSelectClientCertificateCallback;
class CefSetCookieCallback;
class CefStreamReader;
class CefStringVisitor;
class CefTask;
class CefTaskRunner;
class CefValue;
class CefWaitableEvent;
class CefX509CertPrincipal;
class CefX509Certificate;

namespace cefbinding {

// Objects of the engine's.
template <>
struct Counterpart<CefAuthCallback> : LibraryClass<CefAuthCallback, capi::cef_auth_callback_t> {};
template <>
struct Counterpart<CefBeforeDownloadCallback>
    : LibraryClass<CefBeforeDownloadCallback, capi::cef_before_download_callback_t> {};
template <>
struct Counterpart<CefBinaryValue> : LibraryClass<CefBinaryValue, capi::cef_binary_value_t> {};
template <>
struct Counterpart<CefBrowser> : LibraryClass<CefBrowser, capi::cef_browser_t> {};
template <>
struct Counterpart<CefBrowserHost> : LibraryClass<CefBrowserHost, capi::cef_browser_host_t> {};
template <>
struct Counterpart<CefCallback> : LibraryClass<CefCallback, capi::cef_callback_t> {};
template <>
struct Counterpart<CefCommandLine> : LibraryClass<CefCommandLine, capi::cef_command_line_t> {};
template <>
struct Counterpart<CefContextMenuParams>
    : LibraryClass<CefContextMenuParams, capi::cef_context_menu_params_t> {};
template <>
struct Counterpart<CefCookieManager> : LibraryClass<CefCookieManager, capi::cef_cookie_manager_t> {
};
template <>
struct Counterpart<CefDictionaryValue>
    : LibraryClass<CefDictionaryValue, capi::cef_dictionary_value_t> {};
template <>
struct Counterpart<CefDownloadItem> : LibraryClass<CefDownloadItem, capi::cef_download_item_t> {};
template <>
struct Counterpart<CefDownloadItemCallback>
    : LibraryClass<CefDownloadItemCallback, capi::cef_download_item_callback_t> {};
template <>
struct Counterpart<CefDragData> : LibraryClass<CefDragData, capi::cef_drag_data_t> {};
template <>
struct Counterpart<CefFrame> : LibraryClass<CefFrame, capi::cef_frame_t> {};
template <>
struct Counterpart<CefImage> : LibraryClass<CefImage, capi::cef_image_t> {};
template <>
struct Counterpart<CefJSDialogCallback>
    : LibraryClass<CefJSDialogCallback, capi::cef_jsdialog_callback_t> {};
template <>
struct Counterpart<CefListValue> : LibraryClass<CefListValue, capi::cef_list_value_t> {};
template <>
struct Counterpart<CefMenuModel> : LibraryClass<CefMenuModel, capi::cef_menu_model_t> {};
template <>
struct Counterpart<CefPostData> : LibraryClass<CefPostData, capi::cef_post_data_t> {};
template <>
struct Counterpart<CefPostDataElement>
    : LibraryClass<CefPostDataElement, capi::cef_post_data_element_t> {};
template <>
struct Counterpart<CefPreferenceManager>
    : LibraryClass<CefPreferenceManager, capi::cef_preference_manager_t> {};
template <>
struct Counterpart<CefProcessMessage>
    : LibraryClass<CefProcessMessage, capi::cef_process_message_t> {};
template <>
struct Counterpart<CefRegistration> : LibraryClass<CefRegistration, capi::cef_registration_t> {};
template <>
struct Counterpart<CefRequest> : LibraryClass<CefRequest, capi::cef_request_t> {};
template <>
struct Counterpart<CefRequestContext>
    : LibraryClass<CefRequestContext, capi::cef_request_context_t> {};
template <>
struct Counterpart<CefResourceReadCallback>
    : LibraryClass<CefResourceReadCallback, capi::cef_resource_read_callback_t> {};
template <>
struct Counterpart<CefResourceSkipCallback>
    : LibraryClass<CefResourceSkipCallback, capi::cef_resource_skip_callback_t> {};
template <>
struct Counterpart<CefResponse> : LibraryClass<CefResponse, capi::cef_response_t> {};
template <>
struct Counterpart<CefRunContextMenuCallback>
    : LibraryClass<CefRunContextMenuCallback, capi::cef_run_context_menu_callback_t> {};
template <>
struct Counterpart<CefSSLInfo> : LibraryClass<CefSSLInfo, capi::cef_sslinfo_t> {};
template <>
struct Counterpart<CefSelectClientCertificateCallback>
    : LibraryClass<CefSelectClientCertificateCallback,
                   capi::cef_select_client_certificate_callback_t> {};
template <>
struct Counterpart<CefStreamReader> : LibraryClass<CefStreamReader, capi::cef_stream_reader_t> {};
template <>
struct Counterpart<CefTaskRunner> : LibraryClass<CefTaskRunner, capi::cef_task_runner_t> {};
template <>
struct Counterpart<CefValue> : LibraryClass<CefValue, capi::cef_value_t> {};
template <>
struct Counterpart<CefWaitableEvent> : LibraryClass<CefWaitableEvent, capi::cef_waitable_event_t> {
};
template <>
struct Counterpart<CefX509CertPrincipal>
    : LibraryClass<CefX509CertPrincipal, capi::cef_x509cert_principal_t> {};
template <>
struct Counterpart<CefX509Certificate>
    : LibraryClass<CefX509Certificate, capi::cef_x509certificate_t> {};

// Objects of this side's.
template <>
struct Counterpart<CefApp> : ClientClass<CefApp, capi::cef_app_t> {};
template <>
struct Counterpart<CefBrowserProcessHandler>
    : ClientClass<CefBrowserProcessHandler, capi::cef_browser_process_handler_t> {};
template <>
struct Counterpart<CefClient> : ClientClass<CefClient, capi::cef_client_t> {};
template <>
struct Counterpart<CefCompletionCallback>
    : ClientClass<CefCompletionCallback, capi::cef_completion_callback_t> {};
template <>
struct Counterpart<CefContextMenuHandler>
    : ClientClass<CefContextMenuHandler, capi::cef_context_menu_handler_t> {};
template <>
struct Counterpart<CefCookieAccessFilter>
    : ClientClass<CefCookieAccessFilter, capi::cef_cookie_access_filter_t> {};
template <>
struct Counterpart<CefCookieVisitor> : ClientClass<CefCookieVisitor, capi::cef_cookie_visitor_t> {};
template <>
struct Counterpart<CefDeleteCookiesCallback>
    : ClientClass<CefDeleteCookiesCallback, capi::cef_delete_cookies_callback_t> {};
template <>
struct Counterpart<CefDevToolsMessageObserver>
    : ClientClass<CefDevToolsMessageObserver, capi::cef_dev_tools_message_observer_t> {};
template <>
struct Counterpart<CefDisplayHandler>
    : ClientClass<CefDisplayHandler, capi::cef_display_handler_t> {};
template <>
struct Counterpart<CefDownloadHandler>
    : ClientClass<CefDownloadHandler, capi::cef_download_handler_t> {};
template <>
struct Counterpart<CefDownloadImageCallback>
    : ClientClass<CefDownloadImageCallback, capi::cef_download_image_callback_t> {};
template <>
struct Counterpart<CefDragHandler> : ClientClass<CefDragHandler, capi::cef_drag_handler_t> {};
template <>
struct Counterpart<CefFocusHandler> : ClientClass<CefFocusHandler, capi::cef_focus_handler_t> {};
template <>
struct Counterpart<CefJSDialogHandler>
    : ClientClass<CefJSDialogHandler, capi::cef_jsdialog_handler_t> {};
template <>
struct Counterpart<CefKeyboardHandler>
    : ClientClass<CefKeyboardHandler, capi::cef_keyboard_handler_t> {};
template <>
struct Counterpart<CefLifeSpanHandler>
    : ClientClass<CefLifeSpanHandler, capi::cef_life_span_handler_t> {};
template <>
struct Counterpart<CefLoadHandler> : ClientClass<CefLoadHandler, capi::cef_load_handler_t> {};
template <>
struct Counterpart<CefMenuModelDelegate>
    : ClientClass<CefMenuModelDelegate, capi::cef_menu_model_delegate_t> {};
template <>
struct Counterpart<CefReadHandler> : ClientClass<CefReadHandler, capi::cef_read_handler_t> {};
template <>
struct Counterpart<CefRenderProcessHandler>
    : ClientClass<CefRenderProcessHandler, capi::cef_render_process_handler_t> {};
template <>
struct Counterpart<CefRequestHandler>
    : ClientClass<CefRequestHandler, capi::cef_request_handler_t> {};
template <>
struct Counterpart<CefResourceHandler>
    : ClientClass<CefResourceHandler, capi::cef_resource_handler_t> {};
template <>
struct Counterpart<CefResourceRequestHandler>
    : ClientClass<CefResourceRequestHandler, capi::cef_resource_request_handler_t> {};
template <>
struct Counterpart<CefResponseFilter>
    : ClientClass<CefResponseFilter, capi::cef_response_filter_t> {};
template <>
struct Counterpart<CefSetCookieCallback>
    : ClientClass<CefSetCookieCallback, capi::cef_set_cookie_callback_t> {};
template <>
struct Counterpart<CefStringVisitor> : ClientClass<CefStringVisitor, capi::cef_string_visitor_t> {};
template <>
struct Counterpart<CefTask> : ClientClass<CefTask, capi::cef_task_t> {};

}  // namespace cefbinding
