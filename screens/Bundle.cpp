#include "screens/Bundle.h"

#include "screens/appscope/Prismo2AppScope.h"
#include "screens/appscope/PXApplicationListDataSource.h"
#include "screens/colortype/PrismoTypeItemsController.h"
#include "screens/root/Prismo2PrefsListController.h"
#include "screens/root/PrismoColorCell.h"

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
