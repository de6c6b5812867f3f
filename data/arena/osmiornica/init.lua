-- The octopus's lair: a sandy floor under an old octopus who watches the
-- fights. The water hums, so half-hearted words don't carry far.

include("arena/common.lua")
local DIR = "arena/osmiornica/"

function init()
    setArena({
        dimension = {40, 345, 720, 225},
        background = DIR .. "bg.xml",
        start = {
            {170, 460}, {630, 460}, {400, 370}, {400, 550},
            {110, 380}, {690, 540}, {690, 380}, {110, 540},
        },
    })
    setArenaNoise(2)
end

-- Now and then a stream of bubbles rises past the lair.
update = everyNowAndThen(DIR .. "bubbles.ogg", 0.6, 300, 400, 900)
