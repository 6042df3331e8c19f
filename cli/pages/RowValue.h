#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/graphics/UIColor.h"
#include "screens/root/Prismo2PrefsListController.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace prismo::cli {

/// The colour that a row's cell shows; nothing for a row that is not drawn by a colour cell.
std::optional<UIColor> swatchOfRow(PSSpecifier& row);

/// The row of a settings key (without scope): the row that stores it, or the colour row whose colour it is.
/// Throws CommandError: nothing there, where the page has that row in another scope only; wrong usage, where
/// in none.
std::shared_ptr<PSSpecifier> rowForKey(Prismo2PrefsListController& page, std::string_view key);

/// The slugs of the elements, as a person is told them.
constexpr const char* elementNames = "global, keyboard, statusbar, sms, nc, cc, volume or folder";

/// The row of an element's key: slug and `suffix`, such as "keyboard" and "_color_type". Throws as
/// `rowForKey` does.
std::shared_ptr<PSSpecifier> rowForElement(Prismo2PrefsListController& page, const std::string& element,
                                           const char* suffix);

/// What the row shows: its value or, for a colour row, the colour text that its swatch is drawn from.
Value shownValue(PSSpecifier& row);

/// Writes what `text` says through the row, as a tap on it would: a switch takes true false on off yes no 1
/// 0, a list or segment a value or its title, a colour row a colour text. Throws CommandError (wrong usage)
/// for any other text.
void writeThroughRow(PSSpecifier& row, const std::string& text);

/// The value that `text` names, by itself or by its title in any case. Throws CommandError (wrong usage)
/// where it names none.
Value choiceFromText(const PSTitles& titles, const std::string& text);

/// The colour of `text`. Throws CommandError (wrong usage) where it is no colour text.
UIColor colorArgument(const std::string& text);

/// Opens a colour row's picker and accepts that colour in it, alpha included.
void pickColor(PSSpecifier& row, const UIColor& color);

} // namespace prismo::cli
