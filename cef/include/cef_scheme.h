#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_frame.h"
#include "include/cef_request.h"
#include "include/cef_resource_handler.h"
#include "include/cef_response.h"

class CefSchemeHandlerFactory;

// Registers a factory with the global context.
bool CefRegisterSchemeHandlerFactory(const CefString& scheme_name,
                                     const CefString& domain_name,
                                     CefRefPtr<CefSchemeHandlerFactory> factory);

// Removes all factories from the global context.
bool CefClearSchemeHandlerFactories();

// Registers custom schemes. Valid only inside OnRegisterCustomSchemes.
class CefSchemeRegistrar : public CefBaseScoped {
 public:
  virtual bool AddCustomScheme(const CefString& scheme_name, int options) = 0;
};

// Makes the handlers of a scheme, on the IO thread.
class CefSchemeHandlerFactory : public virtual CefBaseRefCounted {
 public:
  virtual CefRefPtr<CefResourceHandler> Create(CefRefPtr<CefBrowser> browser,
                                               CefRefPtr<CefFrame> frame,
                                               const CefString& scheme_name,
                                               CefRefPtr<CefRequest> request) = 0;
};
