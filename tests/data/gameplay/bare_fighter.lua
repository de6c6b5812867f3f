-- Only the one required function; the callbacks must be filled in.
function init() end
