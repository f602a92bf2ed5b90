#include "panels/rules/PanelVisibility.h"
