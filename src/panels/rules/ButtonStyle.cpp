#include "panels/rules/ButtonStyle.h"
