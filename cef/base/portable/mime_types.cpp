#include "mime_types.h"

#include "ascii.h"

namespace cefedition {
namespace {

struct Entry {
  std::string_view extension;
  std::string_view mime_type;
};

// The types that web pages are made of and those that they commonly offer. Of several extensions of
// a type the usual one comes first.
constexpr Entry kEntries[] = {
    {"html", "text/html"},
    {"htm", "text/html"},
    {"shtml", "text/html"},
    {"xhtml", "application/xhtml+xml"},
    {"css", "text/css"},
    {"js", "text/javascript"},
    {"mjs", "text/javascript"},
    {"json", "application/json"},
    {"wasm", "application/wasm"},
    {"xml", "text/xml"},
    {"txt", "text/plain"},
    {"csv", "text/csv"},
    {"ics", "text/calendar"},
    {"pdf", "application/pdf"},
    {"rtf", "application/rtf"},
    {"zip", "application/zip"},
    {"gz", "application/gzip"},
    {"tar", "application/x-tar"},
    {"bin", "application/octet-stream"},
    {"exe", "application/octet-stream"},
    {"doc", "application/msword"},
    {"docx", "application/vnd.openxmlformats-officedocument.wordprocessingml.document"},
    {"xls", "application/vnd.ms-excel"},
    {"xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"},
    {"ppt", "application/vnd.ms-powerpoint"},
    {"pptx", "application/vnd.openxmlformats-officedocument.presentationml.presentation"},
    {"gif", "image/gif"},
    {"jpg", "image/jpeg"},
    {"jpeg", "image/jpeg"},
    {"png", "image/png"},
    {"apng", "image/apng"},
    {"webp", "image/webp"},
    {"avif", "image/avif"},
    {"bmp", "image/bmp"},
    {"ico", "image/x-icon"},
    {"svg", "image/svg+xml"},
    {"tif", "image/tiff"},
    {"tiff", "image/tiff"},
    {"mp3", "audio/mpeg"},
    {"wav", "audio/wav"},
    {"flac", "audio/flac"},
    {"ogg", "audio/ogg"},
    {"weba", "audio/webm"},
    {"mp4", "video/mp4"},
    {"webm", "video/webm"},
    {"ogv", "video/ogg"},
    {"woff", "font/woff"},
    {"woff2", "font/woff2"},
    {"ttf", "font/ttf"},
    {"otf", "font/otf"},
    {"mhtml", "multipart/related"},
};

}  // namespace

std::string MimeTypeFor(std::string_view extension) {
  const std::string lower = ToLowerAscii(extension);
  for (const Entry& entry : kEntries) {
    if (entry.extension == lower) {
      return std::string(entry.mime_type);
    }
  }
  return std::string();
}

std::vector<std::string> ExtensionsFor(std::string_view mime_type) {
  const std::string lower = ToLowerAscii(mime_type);
  const std::string_view wanted = lower;
  std::vector<std::string> extensions;
  for (const Entry& entry : kEntries) {
    const bool found = wanted.ends_with("/*")
                           ? entry.mime_type.starts_with(wanted.substr(0, wanted.size() - 1))
                           : entry.mime_type == wanted;
    if (found) {
      extensions.emplace_back(entry.extension);
    }
  }
  return extensions;
}

}  // namespace cefedition
