#include "panels/rules/HorizontalLayout.h"
