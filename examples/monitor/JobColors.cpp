#include "monitor/JobColors.h"

#include "appearance/wxTolvanColors.h"
#include "tolvan/Job.h"

const String& ColorOfState(const String& state)
{
    if (state == state_Running)
    {
        return color_TextGreen;
    }
    if (state == state_Failed)
    {
        return color_TextRed;
    }
    return state == state_Killed || state == state_Suspended ? color_TextOrange : color_Text;
}

// Dark, so that the figure on it can be read.
const String& ColorOfBar(const String& state)
{
    if (state == state_Failed || state == state_Killed)
    {
        return color_TextDarkRed;
    }
    if (state == state_Suspended)
    {
        return color_TextDarkOrange;
    }
    return state == state_Done ? color_TextDarkBlue : color_TextDarkGreen;
}
