#include <libnemo-extension/nemo-extension-types.h>
#include <libnemo-extension/nemo-file-info.h>
#include <libnemo-extension/nemo-location-widget-provider.h>
#include <libnemo-extension/nemo-menu-provider.h>

#define FILE_MANAGER "nemo"
#define FM_TYPE(Name) Nemo##Name
#define FM_FUNCTION(name) nemo_##name
#define FM_HAS_SEPARATORS
#define FM_MENU_PROVIDER NEMO_TYPE_MENU_PROVIDER
typedef NemoMenuProviderInterface FmMenuProviderTable;
#define FM_LOCATION_WIDGET_PROVIDER NEMO_TYPE_LOCATION_WIDGET_PROVIDER
typedef NemoLocationWidgetProviderInterface FmLocationWidgetProviderTable;

#include "Provider.h"
