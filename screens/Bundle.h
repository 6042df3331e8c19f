#pragma once

namespace prismo {

class Class;

/// Registers the bundle's classes by name. A host calls it once, before it creates a page.
void registerPrismo2Prefs();

/// The class of the bundle's first page.
const Class& prismo2PrefsPrincipalClass();

} // namespace prismo
