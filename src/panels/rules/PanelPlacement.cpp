#include "panels/rules/PanelPlacement.h"
