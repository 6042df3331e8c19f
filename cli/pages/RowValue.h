#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/graphics/UIColor.h"
#include "screens/root/Prismo2PrefsListController.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace prismo::cli {

/// The color that a row's cell shows; nullopt for a row without a color cell.
std::optional<UIColor> swatchOfRow(PSSpecifier& row);

/// The row of a settings key (without scope): the row that stores it, or the color row that shows it. Throws
/// CommandError: nothing there if only another scope has that row, wrong usage if no scope does.
std::shared_ptr<PSSpecifier> rowForKey(Prismo2PrefsListController& page, std::string_view key);

/// The slugs of the elements, for messages.
constexpr const char* elementNames = "global, keyboard, statusbar, sms, nc, cc, volume or folder";

/// The row of an element's key: slug and `suffix`, such as "keyboard" and "_color_type". Throws as
/// `rowForKey` does.
std::shared_ptr<PSSpecifier> rowForElement(Prismo2PrefsListController& page, const std::string& element,
                                           const char* suffix);

/// What the row shows: its value or, for a color row, the color text of its swatch.
Value shownValue(PSSpecifier& row);

/// Writes `text` through the row, as a tap on it would: a switch takes true false on off yes no 1 0, a list
/// or segment a value or its title, a color row a color text. Throws CommandError (wrong usage) for any other
/// text.
void writeThroughRow(PSSpecifier& row, const std::string& text);

/// The value that `text` names, by itself or by its title in any case. Throws CommandError (wrong usage)
/// if there is none.
Value choiceFromText(const PSTitles& titles, const std::string& text);

/// The color of `text`. Throws CommandError (wrong usage) if it is not a color text.
UIColor colorArgument(const std::string& text);

/// Opens a color row's picker and accepts that color in it, alpha included.
void pickColor(PSSpecifier& row, const UIColor& color);

} // namespace prismo::cli
