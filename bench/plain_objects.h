// Objects with the server's interfaces and nothing of the server: what a late-bound call costs when
// the platform alone handles it.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

namespace kzbench {

// A property bag with IKZCEFComSettings; `information` describes that interface.
Microsoft::WRL::ComPtr<IDispatch> MakePlainSettings(Microsoft::WRL::ComPtr<ITypeInfo> information);

// An object with IKZCEFComApplication2 whose members do nothing.
Microsoft::WRL::ComPtr<IDispatch> MakePlainApplication(
    Microsoft::WRL::ComPtr<ITypeInfo> information);

}  // namespace kzbench
