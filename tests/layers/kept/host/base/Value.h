#pragma once
#include <vector>
