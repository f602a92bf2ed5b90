#include "panels/rules/PanelDrag.h"
