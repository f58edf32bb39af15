#pragma once

#include <vector>

#include "include/cef_base.h"

// Settings of a print job.
class CefPrintSettings : public virtual CefBaseRefCounted {
 public:
  typedef cef_color_model_t ColorModel;
  typedef cef_duplex_mode_t DuplexMode;
  typedef std::vector<CefRange> PageRangeList;

  virtual bool IsValid() = 0;
  virtual bool IsReadOnly() = 0;
  virtual void SetOrientation(bool landscape) = 0;
  virtual bool IsLandscape() = 0;
  virtual void SetPrinterPrintableArea(const CefSize& physical_size_device_units,
                                       const CefRect& printable_area_device_units,
                                       bool landscape_needs_flip) = 0;
  virtual void SetDeviceName(const CefString& name) = 0;
  virtual CefString GetDeviceName() = 0;
  virtual void SetDPI(int dpi) = 0;
  virtual int GetDPI() = 0;
  virtual void SetPageRanges(const PageRangeList& ranges) = 0;
  virtual size_t GetPageRangesCount() = 0;
  virtual void GetPageRanges(PageRangeList& ranges) = 0;
  virtual void SetSelectionOnly(bool selection_only) = 0;
  virtual bool IsSelectionOnly() = 0;
  virtual void SetCollate(bool collate) = 0;
  virtual bool WillCollate() = 0;
  virtual void SetColorModel(ColorModel model) = 0;
  virtual ColorModel GetColorModel() = 0;
  virtual void SetCopies(int copies) = 0;
  virtual int GetCopies() = 0;
  virtual void SetDuplexMode(DuplexMode mode) = 0;
  virtual DuplexMode GetDuplexMode() = 0;
};
