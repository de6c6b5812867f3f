-- The stage: a bare wooden floor under a spotlight, the whole width of the
-- screen, and an audience that murmurs now and then.

function init()
    setArena({
        dimension = {30, 320, 740, 260},
        background = "arena/default/bg.xml",
        start = {
            {160, 450}, {640, 450}, {400, 340}, {400, 560},
            {60, 340}, {740, 560}, {740, 340}, {60, 560},
        },
    })
    setArenaNoise(1)
end

function update() end
