#include "panels/rules/PanelFade.h"
