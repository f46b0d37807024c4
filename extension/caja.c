#include <libcaja-extension/caja-extension-types.h>
#include <libcaja-extension/caja-file-info.h>
#include <libcaja-extension/caja-location-widget-provider.h>
#include <libcaja-extension/caja-menu-provider.h>

#define FILE_MANAGER "caja"
#define FM_TYPE(Name) Caja##Name
#define FM_FUNCTION(name) caja_##name
#define FM_MENU_PROVIDER CAJA_TYPE_MENU_PROVIDER
typedef CajaMenuProviderIface FmMenuProviderTable;
#define FM_LOCATION_WIDGET_PROVIDER CAJA_TYPE_LOCATION_WIDGET_PROVIDER
typedef CajaLocationWidgetProviderIface FmLocationWidgetProviderTable;

#include "Provider.h"
