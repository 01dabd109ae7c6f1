#pragma once

/// Names of the product, as they stand in messages, files and stores.
namespace Product {
constexpr const char *name = "Quillmere";
constexpr const char *organisation = "Marlwick";
constexpr const char *documentSuffix = "transform";
constexpr const char *iniFileName = "quillmere.ini";
constexpr const char *recoveryFileName = "QuillmereAutoRecovery.transform";
constexpr const char *supportAddress = "support@quillmere.example";
} // namespace Product
