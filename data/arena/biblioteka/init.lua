-- The library: a small rug between the shelves, and silence. Every word
-- carries from wall to wall, however softly it is spoken.

include("arena/common.lua")
local DIR = "arena/biblioteka/"

function init()
    setArena({
        dimension = {140, 400, 520, 160},
        background = DIR .. "bg.xml",
        start = {
            {250, 480}, {550, 480}, {400, 420}, {400, 545},
            {170, 420}, {630, 545}, {630, 420}, {170, 545},
        },
    })
    setArenaNoise(0.25)
end

-- The librarian hushes the fighters from somewhere behind the shelves.
update = everyNowAndThen(DIR .. "hush.ogg", 0.7, 600, 900, 1800)
