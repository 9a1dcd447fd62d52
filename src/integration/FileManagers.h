#pragma once

#include <array>
#include <span>
#include <string_view>

namespace vexmoor {

/// The format of a file manager's context menu entry. File managers with the same format read the
/// same file.
enum class MenuEntryKind {
    none, ///< has no menu that passes every name safely
    nautilusScript,
    cajaScript,
    nemoAction, ///< or a script, in versions where only scripts support accelerators
    thunarAction,
    kioServiceMenu,
    desktopAction, ///< the DES-EMA format
};

/// The configuration in which the file manager binds Ctrl+Backspace to our menu entry.
enum class AcceleratorKind {
    none, ///< the key can only be captured, on X11
    nautilus,
    nemo,
    thunar,
    dolphin,
};

/// The properties of one file manager. All views refer to static storage.
struct FileManager {
    std::string_view id;                             ///< "pcmanfm-qt"
    std::string_view title;                          ///< "PCManFM-Qt"
    std::span<const std::string_view> programs;      ///< names of its executable
    std::span<const std::string_view> windowClasses; ///< class part of WM_CLASS, exact match
    MenuEntryKind menuEntry = MenuEntryKind::none;
    AcceleratorKind accelerator = AcceleratorKind::none;
};

namespace fileManagerNames {

using View = std::string_view;

inline constexpr std::array kThunarPrograms{View("thunar"), View("Thunar")};
inline constexpr std::array kThunarClasses{View("Thunar"), View("thunar")};
inline constexpr std::array kNautilusPrograms{View("nautilus")};
inline constexpr std::array kNautilusClasses{View("org.gnome.Nautilus"), View("Org.gnome.Nautilus"),
                                             View("Nautilus"), View("nautilus")};
inline constexpr std::array kNemoPrograms{View("nemo")};
inline constexpr std::array kNemoClasses{View("Nemo"), View("nemo")};
inline constexpr std::array kCajaPrograms{View("caja")};
inline constexpr std::array kCajaClasses{View("Caja"), View("caja")};
inline constexpr std::array kPcmanfmPrograms{View("pcmanfm")};
inline constexpr std::array kPcmanfmClasses{View("Pcmanfm"), View("pcmanfm")};
inline constexpr std::array kPcmanfmQtPrograms{View("pcmanfm-qt")};
inline constexpr std::array kPcmanfmQtClasses{View("pcmanfm-qt"), View("Pcmanfm-qt")};
inline constexpr std::array kDolphinPrograms{View("dolphin")};
inline constexpr std::array kDolphinClasses{View("dolphin"), View("org.kde.dolphin"),
                                            View("Dolphin")};
inline constexpr std::array kKrusaderPrograms{View("krusader")};
inline constexpr std::array kKrusaderClasses{View("krusader"), View("org.kde.krusader"),
                                             View("Krusader")};
inline constexpr std::array kSpacefmPrograms{View("spacefm")};
inline constexpr std::array kSpacefmClasses{View("Spacefm"), View("spacefm")};

} // namespace fileManagerNames

/// All supported file managers, in display order.
inline constexpr std::array kFileManagers{
    FileManager{"thunar", "Thunar", fileManagerNames::kThunarPrograms,
                fileManagerNames::kThunarClasses, MenuEntryKind::thunarAction,
                AcceleratorKind::thunar},
    FileManager{"nautilus", "Nautilus", fileManagerNames::kNautilusPrograms,
                fileManagerNames::kNautilusClasses, MenuEntryKind::nautilusScript,
                AcceleratorKind::nautilus},
    FileManager{"nemo", "Nemo", fileManagerNames::kNemoPrograms, fileManagerNames::kNemoClasses,
                MenuEntryKind::nemoAction, AcceleratorKind::nemo},
    // Caja's accelerator would also fire in text fields.
    FileManager{"caja", "Caja", fileManagerNames::kCajaPrograms, fileManagerNames::kCajaClasses,
                MenuEntryKind::cajaScript},
    FileManager{"pcmanfm", "PCManFM", fileManagerNames::kPcmanfmPrograms,
                fileManagerNames::kPcmanfmClasses, MenuEntryKind::desktopAction},
    FileManager{"pcmanfm-qt", "PCManFM-Qt", fileManagerNames::kPcmanfmQtPrograms,
                fileManagerNames::kPcmanfmQtClasses, MenuEntryKind::desktopAction},
    FileManager{"dolphin", "Dolphin", fileManagerNames::kDolphinPrograms,
                fileManagerNames::kDolphinClasses, MenuEntryKind::kioServiceMenu,
                AcceleratorKind::dolphin},
    // Krusader's user actions drop newlines from names; service menus pass names unchanged.
    FileManager{"krusader", "Krusader", fileManagerNames::kKrusaderPrograms,
                fileManagerNames::kKrusaderClasses, MenuEntryKind::kioServiceMenu},
    FileManager{"spacefm", "SpaceFM", fileManagerNames::kSpacefmPrograms,
                fileManagerNames::kSpacefmClasses},
};

/// Returns the file manager with that window class, or nullptr. Thread-safe; neither allocates nor
/// makes system calls.
const FileManager* fileManagerOfWindowClass(std::string_view windowClass);

/// Returns the file manager with that id, or nullptr.
const FileManager* fileManagerWithId(std::string_view id);

} // namespace vexmoor
