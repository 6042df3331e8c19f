// What a program calls when it has loaded the bundle.

#include "screens/Bundle.h"

extern "C" [[gnu::visibility("default")]] void registerBundleClasses() { prismo::registerPrismo2Prefs(); }
