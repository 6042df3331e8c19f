// The entry point that a program calls after loading the bundle.

#include "screens/Bundle.h"

extern "C" [[gnu::visibility("default")]] void registerBundleClasses() { prismo::registerPrismo2Prefs(); }
