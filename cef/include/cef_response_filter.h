// include/cef_response_filter.h of CEF 123, as far as it is used
// here: changing the body of a response.
#pragma once

#include "include/cef_base.h"

// Rewrites the body of a response as it arrives.
class CefResponseFilter : public virtual CefBaseRefCounted {
 public:
  typedef cef_response_filter_status_t FilterStatus;

  virtual bool InitFilter() = 0;
  virtual FilterStatus Filter(void* data_in,
                              size_t data_in_size,
                              size_t& data_in_read,
                              void* data_out,
                              size_t data_out_size,
                              size_t& data_out_written) = 0;
};
