# Chooses what stands behind CEF's headers. Either way the same two targets come out:
#   cef::base  headers, strings, values, parsing, tasks: all that needs no running engine
#   cef::cef   cef::base and the engine
# With CEF_ROOT they are a CEF 123 binary distribution; without it, this repository's edition.
set(CEF_ROOT "" CACHE PATH "A CEF 123 binary distribution for 64-bit Windows (empty: the edition in cef/)")
