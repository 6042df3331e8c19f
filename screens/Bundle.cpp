#include "screens/Bundle.h"

#include "screens/Prismo2AppScope.h"
#include "screens/Prismo2PrefsListController.h"
#include "screens/PrismoColorCell.h"
#include "screens/PrismoTypeItemsController.h"
#include "screens/PXApplicationListDataSource.h"

namespace prismo {

void registerPrismo2Prefs() {
    for (const auto* objectClass :
         {&Prismo2PrefsListController::classObject(), &Prismo2AppScope::classObject(),
          &PrismoColorCell::classObject(), &PrismoTypeItemsController::classObject(),
          &PrismoGlobalTypeItemsController::classObject(), &PXApplicationListDataSource::classObject()})
        registerClass(*objectClass);
}

const Class& prismo2PrefsPrincipalClass() { return Prismo2PrefsListController::classObject(); }

} // namespace prismo
