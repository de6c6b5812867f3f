-- Shared by the arenas: a sound that comes back now and then, as an arena's
-- update function. The script's update runs once a frame, so the waits are
-- counted in frames.

function everyNowAndThen(sound, volume, firstWait, minWait, maxWait)
    local frames, nextAt = 0, firstWait
    return function()
        frames = frames + 1
        if frames >= nextAt then
            playSound(sound, volume)
            nextAt = frames + math.random(minWait, maxWait)
        end
    end
end
