-- A fighter with the tests' own pictures, set through the loader's defaults.
function init() end
