vim.bo.commentstring = '*%s'
vim.bo.comments = ':*'
vim.b.undo_ftplugin = 'setlocal commentstring< comments< omnifunc<'
require('wexcorin').start()
