#pragma once

#include <array>
#include <span>
#include <string_view>

namespace vexmoor {

/// The form in which a file manager takes an entry for its context menu. Two file managers with the
/// same form read the same file.
enum class MenuEntryKind {
    none, ///< it has no menu that hands over every name safely
    nautilusScript,
    cajaScript,
    nemoAction, ///< or a script, where only scripts can carry a key
    thunarAction,
    kioServiceMenu,
    desktopAction, ///< DES-EMA
};

/// How the file manager's own configuration binds Ctrl+Backspace to our menu entry.
enum class AcceleratorKind {
    none, ///< the key can only be captured on X11
    nautilus,
    nemo,
    thunar,
    dolphin,
};

/// What is known of one file manager. All views are of static storage.
struct FileManager {
    std::string_view id;                             ///< "pcmanfm-qt"
    std::string_view title;                          ///< "PCManFM-Qt"
    std::span<const std::string_view> programs;      ///< names of its executable
    std::span<const std::string_view> windowClasses; ///< the class part of WM_CLASS, exact
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

/// All that we know, in the order of showing.
inline constexpr std::array kFileManagers{
    FileManager{"thunar", "Thunar", fileManagerNames::kThunarPrograms,
                fileManagerNames::kThunarClasses, MenuEntryKind::thunarAction,
                AcceleratorKind::thunar},
    FileManager{"nautilus", "Nautilus", fileManagerNames::kNautilusPrograms,
                fileManagerNames::kNautilusClasses, MenuEntryKind::nautilusScript,
                AcceleratorKind::nautilus},
    FileManager{"nemo", "Nemo", fileManagerNames::kNemoPrograms, fileManagerNames::kNemoClasses,
                MenuEntryKind::nemoAction, AcceleratorKind::nemo},
    // Its key would fire in text fields too.
    FileManager{"caja", "Caja", fileManagerNames::kCajaPrograms, fileManagerNames::kCajaClasses,
                MenuEntryKind::cajaScript},
    FileManager{"pcmanfm", "PCManFM", fileManagerNames::kPcmanfmPrograms,
                fileManagerNames::kPcmanfmClasses, MenuEntryKind::desktopAction},
    FileManager{"pcmanfm-qt", "PCManFM-Qt", fileManagerNames::kPcmanfmQtPrograms,
                fileManagerNames::kPcmanfmQtClasses, MenuEntryKind::desktopAction},
    FileManager{"dolphin", "Dolphin", fileManagerNames::kDolphinPrograms,
                fileManagerNames::kDolphinClasses, MenuEntryKind::kioServiceMenu,
                AcceleratorKind::dolphin},
    // Its user actions drop newlines from names; the service menu hands names over whole.
    FileManager{"krusader", "Krusader", fileManagerNames::kKrusaderPrograms,
                fileManagerNames::kKrusaderClasses, MenuEntryKind::kioServiceMenu},
    FileManager{"spacefm", "SpaceFM", fileManagerNames::kSpacefmPrograms,
                fileManagerNames::kSpacefmClasses},
};

/// The file manager whose windows have this class; nullptr if none of ours. Any thread; neither
/// allocates nor asks the system.
const FileManager* fileManagerOfWindowClass(std::string_view windowClass);

/// nullptr if there is no file manager of that id.
const FileManager* fileManagerWithId(std::string_view id);

} // namespace vexmoor
