// Nautilus tells its windows' folders itself.
#include <nautilus-extension.h>

#define FILE_MANAGER "nautilus"
#define FM_TYPE(Name) Nautilus##Name
#define FM_FUNCTION(name) nautilus_##name
#define FM_MENU_PROVIDER NAUTILUS_TYPE_MENU_PROVIDER
typedef NautilusMenuProviderInterface FmMenuProviderTable;

#include "Provider.h"
