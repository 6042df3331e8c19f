#pragma once

namespace prismo {

class Class;

/// Makes the bundle's classes known by their names. A host calls it once, before it makes a page.
void registerPrismo2Prefs();

/// The class of the page that the bundle opens with.
const Class& prismo2PrefsPrincipalClass();

} // namespace prismo
