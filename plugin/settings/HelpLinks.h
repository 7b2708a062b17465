#pragma once

namespace vorn {

// Pages that the panel's notices lead to.
inline constexpr const char* MicrosoftInjectionBasedPlguinLink =
    "https://support.vorn.example/outlook/end-of-injected-plug-ins";
inline constexpr const char* VornAddinHelperLink = "https://support.vorn.example/outlook/add-in";
inline constexpr const char* kDataCenterHelpLink =
    "https://support.vorn.example/data-centers-and-dial-in-countries";
inline constexpr const char* kEncryptionHelpLink = "https://support.vorn.example/end-to-end-encryption";

}  // namespace vorn
