function init( end
